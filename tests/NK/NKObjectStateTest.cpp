#include "NK/NKObjectState.hpp"

#include <gtest/gtest.h>

namespace {

TEST(ObjectStateTest, TypedFieldsRoundTripAndRefuseOtherKinds)
{
    NK::ObjectState item;
    item.Set("text", "OK");
    NK::ObjectState state;
    state.Set("name", NK::UniString(u"d\u00E9"));
    state.Set("count", 12);
    state.Set("ratio", 0.25);
    state.Set("open", true);
    state.Set("item", item);
    state.Set("ids", NK::Array<NK::Int64> {1, 2, 3});

    EXPECT_EQ(state.GetString("name"), NK::UniString(u"d\u00E9"));
    EXPECT_TRUE(state.GetBool("open"));
    double asDouble = 0;
    EXPECT_TRUE(state.Get("count", asDouble));  // an integer reads as a double
    EXPECT_EQ(asDouble, 12.0);
    NK::Int64 fromDouble = 5;
    EXPECT_FALSE(state.Get("ratio", fromDouble));  // but not the other way round
    EXPECT_EQ(fromDouble, 5);
    EXPECT_EQ(state.GetInt("name", -1), -1);
    NK::ObjectState nested;
    EXPECT_TRUE(state.Get("item", nested));
    EXPECT_EQ(nested, item);
    EXPECT_FALSE(state.Get("ids", nested));
    NK::Array<NK::Int64> ids;
    EXPECT_TRUE(state.Get("ids", ids));
    EXPECT_EQ(ids, (NK::Array<NK::Int64> {1, 2, 3}));
    NK::Array<NK::UniString> texts {"kept"};
    EXPECT_FALSE(state.Get("ids", texts));  // elements of another kind: nothing is read
    EXPECT_EQ(texts.GetSize(), 1u);

    state.Set("count", "replaced");
    EXPECT_TRUE(state.Remove("ratio"));
    EXPECT_FALSE(state.Remove("ratio"));
    EXPECT_EQ(state.GetFieldNames(), (std::vector<std::string> {"name", "count", "open", "item", "ids"}));
}

TEST(ObjectStateTest, ParsesAndPrintsJsonObjectsAndABadTextLeavesTheState)
{
    const char* text = R"({"name":"recipes","id":"7","deep":{"list":[true,false]}})";
    NK::ObjectState state;
    ASSERT_EQ(NK::ObjectState::Parse(text, state), NK::NoError);
    EXPECT_EQ(state.GetString("id"), NK::UniString("7"));
    EXPECT_EQ(state.ToJsonText(), text);
    for (const char* bad : {"[1, 2]", "{\"a\": "})
        EXPECT_EQ(NK::ObjectState::Parse(bad, state), NK::ErrParse) << bad;
    EXPECT_EQ(state.ToJsonText(), text);
}

}  // namespace
