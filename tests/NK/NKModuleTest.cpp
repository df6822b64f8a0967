#include "NK/NKModule.hpp"

#include <gtest/gtest.h>

#include <utility>

namespace {

TEST(ModuleTest, LoadsALibraryFindsItsFunctionsAndReportsTheLoadersText)
{
    NK::Module module;
    ASSERT_EQ(module.Load("libm.so.6"), NK::NoError) << module.GetErrorText();
    using Cosine = double(double);
    Cosine* cosine = module.GetFunction<Cosine>("cos");
    ASSERT_NE(cosine, nullptr);
    EXPECT_DOUBLE_EQ(cosine(0.0), 1.0);
    void* address = &module;
    EXPECT_EQ(module.FindSymbol("GetNoSuchFunction", address), NK::ErrSymbolNotFound);
    EXPECT_EQ(address, &module);
    EXPECT_NE(module.GetErrorText().find("GetNoSuchFunction"), std::string::npos);

    NK::Module moved(std::move(module));
    EXPECT_FALSE(module.IsLoaded());
    EXPECT_NE(moved.GetFunction<Cosine>("cos"), nullptr);
    moved.Unload();
    EXPECT_EQ(moved.FindSymbol("cos", address), NK::ErrNotOpen);

    EXPECT_EQ(module.Load("libNoSuchLibrary.so"), NK::ErrModuleLoad);
    EXPECT_FALSE(module.IsLoaded());
    EXPECT_NE(module.GetErrorText().find("libNoSuchLibrary.so"), std::string::npos);
}

}  // namespace
