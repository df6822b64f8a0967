#include "DataViewTestBench.hpp"

#include <gtest/gtest.h>

namespace {

using namespace FDVDataViewTest;

std::vector<NK::Byte> Written(FolderedDataView& dataView)
{
    NK::MemoryOChannel channel;
    EXPECT_EQ(dataView.WriteState(channel), NK::NoError);
    return channel.GetBytes();
}

class DataViewStateTest : public ::testing::Test {
protected:
    DataViewStateTest()
    {
        browser.dataView.SetItems(BuildForest(SampleForest()));
        browser.dataView.CreateDefaultState();
        browser.dataView.ShowCurrentView();
        browser.dataView.InitRect();
    }
    Browser browser;
};

TEST_F(DataViewStateTest, StateIsWrittenInTheChannelLayout)
{
    browser.dataView.SetViewMode(ViewMode::TreeAndList);
    const std::vector<NK::Byte> bytes = Written(browser.dataView);
    // mode 3, three view states under modes 1, 2, 3 in registration order.
    const std::vector<NK::Byte> head {3, 0, 3, 0, 1, 0, 2, 0, 3, 0};
    ASSERT_GT(bytes.size(), head.size());
    EXPECT_EQ(std::vector<NK::Byte>(bytes.begin(), bytes.begin() + head.size()), head);

    // A data view without views writes its mode and no view states.
    FolderedDataView bare;
    bare.CreateDefaultState();
    EXPECT_EQ(Written(bare), (std::vector<NK::Byte> {1, 0, 0, 0}));
}

TEST_F(DataViewStateTest, StateReadIntoAFreshDefaultStateRestoresModeLayoutsAndIsWrittenAgainByteForByte)
{
    browser.dataView.SetViewMode(ViewMode::TreeAndList);
    browser.dataView.GetSplitter()->SimulateUserDrag(40);
    browser.dataView.SetViewMode(ViewMode::FlatList);
    static_cast<FlatListLayout*>(browser.dataView.GetCurrentView()->GetLayout())->SetSearchFieldVisible(false);
    const std::vector<NK::Byte> bytes = Written(browser.dataView);

    Browser second;
    second.dataView.SetItems(BuildForest(SampleForest()));
    second.dataView.CreateDefaultState();
    second.dataView.ShowCurrentView();
    second.dataView.InitRect();
    NK::MemoryIChannel channel(bytes);
    ASSERT_EQ(second.dataView.ReadState(channel), NK::NoError);

    EXPECT_EQ(second.dataView.GetState()->GetViewMode(), ViewMode::FlatList);
    EXPECT_EQ(second.dataView.GetCurrentView(), second.dataView.GetView(ViewMode::FlatList));
    EXPECT_FALSE(second.SearchField().IsVisible());
    EXPECT_TRUE(second.ListBox().IsVisible());
    second.dataView.SetViewMode(ViewMode::TreeAndList);
    EXPECT_EQ(second.Tree().GetRect().GetWidth(), TreeAndListLayout::defaultTreeWidth + 40);
    second.dataView.SetViewMode(ViewMode::FlatList);
    EXPECT_EQ(Written(second.dataView), bytes);
}

TEST_F(DataViewStateTest, AModeTheStateDoesNotHoldIsRefusedAndTheDataViewKeepsItsState)
{
    browser.dataView.SetViewMode(ViewMode::TreeAndList);
    const std::vector<NK::Byte> before = Written(browser.dataView);

    // A state of a data view with a fourth view.
    std::vector<NK::Byte> foreign = before;
    foreign[2] = 4;                      // four view states
    foreign.insert(foreign.begin() + 10, {7, 0});  // the fourth under mode 7
    NK::MemoryIChannel unknownView(foreign);
    EXPECT_EQ(browser.dataView.ReadState(unknownView), NK::ErrMissingElement);

    std::vector<NK::Byte> unknownMode = before;
    unknownMode[0] = 9;
    NK::MemoryIChannel channel(unknownMode);
    EXPECT_EQ(browser.dataView.ReadState(channel), NK::ErrMissingElement);

    EXPECT_EQ(Written(browser.dataView), before);
    EXPECT_EQ(browser.dataView.GetCurrentView(), browser.dataView.GetView(ViewMode::TreeAndList));
}

TEST_F(DataViewStateTest, ATruncatedStreamReturnsTheChannelErrorAndLeavesTheDataViewUsable)
{
    browser.dataView.SetViewMode(ViewMode::TreeAndList);
    browser.dataView.GetSplitter()->SimulateUserDrag(30);
    const std::vector<NK::Byte> before = Written(browser.dataView);

    for (NK::UIndex size : {NK::UIndex(0), NK::UIndex(3), NK::UIndex(9), before.size() - 1}) {
        NK::MemoryIChannel channel(std::vector<NK::Byte>(before.begin(), before.begin() + size));
        EXPECT_EQ(browser.dataView.ReadState(channel), NK::ErrChannelEnd) << size;
    }
    EXPECT_EQ(Written(browser.dataView), before);
    // Still working: the user can pick a folder and the list follows.
    browser.Tree().SimulateUserSelectNode(browser.dataView.GetTreeDataView()->GetNode(IdOf("Notes")));
    EXPECT_EQ(browser.ListRows(), "Minutes");
}

TEST_F(DataViewStateTest, StateOperationsReportMisuse)
{
    NK::AssertCapture capture;
    browser.dataView.CreateDefaultState();
    FolderedDataView bare;
    EXPECT_EQ(bare.GetState(), nullptr);
    NK::MemoryOChannel out;
    EXPECT_EQ(bare.WriteState(out), NK::ErrNullChannelOrElement);
    EXPECT_EQ(capture.GetExpressions(),
              (std::vector<std::string> {"state == nullptr", "state != nullptr", "state != nullptr"}));
    EXPECT_NE(browser.dataView.GetState(), nullptr);
}

}  // namespace
