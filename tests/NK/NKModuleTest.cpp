#include "NK/NKModule.hpp"

#include <gtest/gtest.h>

#include <utility>

namespace {

TEST(ModuleTest, LoadsALibraryAndFindsItsFunctions)
{
    NK::Module module;
    ASSERT_EQ(module.Load("libm.so.6"), NK::NoError) << module.GetErrorText();
    EXPECT_TRUE(module.IsLoaded());
    EXPECT_NE(module.GetHandle(), NK::NullModuleHandle);
    using Cosine = double(double);
    Cosine* cosine = module.GetFunction<Cosine>("cos");
    ASSERT_NE(cosine, nullptr);
    EXPECT_DOUBLE_EQ(cosine(0.0), 1.0);

    void* address = &module;
    EXPECT_EQ(module.FindSymbol("GetNKAutoTesterFunctions", address), NK::ErrSymbolNotFound);
    EXPECT_EQ(address, &module);
    EXPECT_NE(module.GetErrorText().find("GetNKAutoTesterFunctions"), std::string::npos);

    NK::Module moved(std::move(module));
    EXPECT_FALSE(module.IsLoaded());
    EXPECT_NE(moved.GetFunction<Cosine>("cos"), nullptr);
    moved.Unload();
    EXPECT_FALSE(moved.IsLoaded());
    EXPECT_EQ(moved.FindSymbol("cos", address), NK::ErrNotOpen);
}

TEST(ModuleTest, AFailedLoadIsAnErrorWithTheLoadersText)
{
    NK::Module module;
    EXPECT_EQ(module.Load("NKAutoTester.DLL"), NK::ErrModuleLoad);
    EXPECT_FALSE(module.IsLoaded());
    EXPECT_NE(module.GetErrorText().find("NKAutoTester.DLL"), std::string::npos);
    EXPECT_EQ(module.Load(""), NK::ErrModuleLoad);
}

}  // namespace
