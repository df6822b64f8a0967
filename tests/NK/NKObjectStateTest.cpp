#include "NK/NKObjectState.hpp"

#include <gtest/gtest.h>

namespace {

TEST(ObjectStateTest, TypedFieldsRoundTripAndRefuseOtherKinds)
{
    NK::ObjectState state;
    EXPECT_TRUE(state.IsEmpty());
    state.Set("name", "QMGetItemInfoJSON");
    state.Set("dialogId", NK::UniString(u"d\u00E9"));
    state.Set("count", 12);
    state.Set("ratio", 0.25);
    state.Set("open", true);

    NK::UniString name;
    EXPECT_TRUE(state.Get("name", name));
    EXPECT_EQ(name, NK::UniString("QMGetItemInfoJSON"));
    EXPECT_EQ(state.GetString("dialogId"), NK::UniString(u"d\u00E9"));
    NK::Int32 count = 0;
    EXPECT_TRUE(state.Get("count", count));
    EXPECT_EQ(count, 12);
    double asDouble = 0;
    EXPECT_TRUE(state.Get("count", asDouble));  // an integer reads as a double
    NK::Int64 fromDouble = 5;
    EXPECT_FALSE(state.Get("ratio", fromDouble));  // but not the other way round
    EXPECT_EQ(fromDouble, 5);
    EXPECT_FALSE(state.Get("missing", name));
    EXPECT_TRUE(state.GetBool("open"));
    EXPECT_EQ(state.GetInt("name", -1), -1);

    state.Set("count", "replaced");
    EXPECT_EQ(state.GetFieldNames(), (std::vector<std::string> {"name", "dialogId", "count", "ratio", "open"}));
    EXPECT_TRUE(state.Remove("ratio"));
    EXPECT_FALSE(state.Remove("ratio"));
    EXPECT_EQ(state.GetFieldCount(), 4u);
}

TEST(ObjectStateTest, NestedStatesAndArrays)
{
    NK::ObjectState item;
    item.Set("text", "OK");
    NK::ObjectState reply;
    reply.Set("response", item);
    reply.Set("ids", NK::Array<NK::Int64> {1, 2, 3});
    reply.Set("children", NK::Array<NK::ObjectState> {item, item});

    NK::ObjectState response;
    EXPECT_TRUE(reply.Get("response", response));
    EXPECT_EQ(response, item);
    NK::Array<NK::Int64> ids;
    EXPECT_TRUE(reply.Get("ids", ids));
    EXPECT_EQ(ids, (NK::Array<NK::Int64> {1, 2, 3}));
    NK::Array<NK::UniString> texts {"kept"};
    EXPECT_FALSE(reply.Get("ids", texts));  // elements of another kind: nothing is read
    EXPECT_EQ(texts.GetSize(), 1u);
    NK::Array<NK::ObjectState> children;
    EXPECT_TRUE(reply.Get("children", children));
    EXPECT_EQ(children.GetSize(), 2u);
    EXPECT_FALSE(reply.Get("ids", response));
}

TEST(ObjectStateTest, ParsesAndPrintsJsonObjects)
{
    NK::ObjectState state;
    ASSERT_EQ(NK::ObjectState::Parse(R"({"name":"QMGetDialogInfoJSON","dialogId":"7","deep":{"list":[true,false]}})", state), NK::NoError);
    EXPECT_EQ(state.GetString("dialogId"), NK::UniString("7"));
    EXPECT_EQ(state.ToJsonText(), R"({"name":"QMGetDialogInfoJSON","dialogId":"7","deep":{"list":[true,false]}})");

    NK::ObjectState untouched;
    untouched.Set("a", 1);
    EXPECT_EQ(NK::ObjectState::Parse("[1, 2]", untouched), NK::ErrParse);
    EXPECT_EQ(NK::ObjectState::Parse("{\"a\": ", untouched), NK::ErrParse);
    EXPECT_EQ(untouched.GetInt("a"), 1);
}

}  // namespace
