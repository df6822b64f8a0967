#include "DataViewTestBench.hpp"

#include <gtest/gtest.h>

namespace {

using namespace FDVDataViewTest;
using Bytes = std::vector<NK::Byte>;
using State = FolderedDataView::State;

Bytes Written(FolderedDataView& dataView)
{
    NK::MemoryOChannel channel;
    EXPECT_EQ(dataView.WriteState(channel), NK::NoError);
    return channel.GetBytes();
}

// A state holding a view state without layout (it writes nothing) under each of the modes.
NK::Owner<State> StateOf(ViewMode mode, const std::vector<int>& viewModes)
{
    auto state = NK::NewOwned<State>();
    state->SetViewMode(mode);
    for (int viewMode : viewModes)
        state->PutViewState(ViewMode(viewMode), NK::NewOwned<WZ::Folderable::Views::View::ViewState>(nullptr));
    return state;
}

class DataViewStateTest : public ::testing::Test {
protected:
    DataViewStateTest() { Prepare(bench); }
    static void Prepare(Bench& target)
    {
        target.dataView.SetItems(BuildForest(SampleForest()));
        target.dataView.CreateDefaultState();
        target.dataView.ShowCurrentView();
        target.dataView.InitRect();
    }
    Bench bench;
};

// The layout on its own: what each stream reads into a state holding view states under 1 and 2.
TEST_F(DataViewStateTest, TheStateReadsTheChannelLayoutAndKeepsItsModeOnAnyError)
{
    struct Case {
        Bytes stream;
        NK::ErrCode error;
        int modeAfter;  // 9: the mode the state had
    };
    const std::vector<Case> cases {
        {{3, 0, 0, 0}, NK::NoError, 3},                 // a mode and no view states
        {{3, 0, 2, 0, 2, 0, 1, 0}, NK::NoError, 3},     // both view states, in the stream's order
        {{-2 & 0xFF, 0xFF, 0, 0}, NK::NoError, -2},     // any mode, held or not
        {{3, 0, 1, 0, 7, 0}, NK::ErrMissingElement, 9}, // a view state this state does not hold
        {{3, 0, 1, 0}, NK::ErrChannelEnd, 9},           // the count promises a mode that is missing
        {{3}, NK::ErrChannelEnd, 9},
    };
    for (const Case& c : cases) {
        NK::Owner<State> state = StateOf(ViewMode(9), {1, 2});
        NK::MemoryIChannel channel(c.stream);
        EXPECT_EQ(state->Read(channel), c.error) << testing::PrintToString(c.stream);
        EXPECT_EQ(int(state->GetViewMode()), c.modeAfter) << testing::PrintToString(c.stream);
    }
    // Written in the order of the state's table.
    NK::MemoryOChannel out;
    ASSERT_EQ(StateOf(ViewMode(5), {2, 1})->Write(out), NK::NoError);
    EXPECT_EQ(out.GetBytes(), (Bytes {5, 0, 2, 0, 2, 0, 1, 0}));
}

// Whatever a data view wrote, its mode under no view included, reads back and is written again
// byte for byte, with each view's layout restored.
TEST_F(DataViewStateTest, AWrittenStateReadsBackAndIsWrittenAgainByteForByte)
{
    bench.dataView.SetViewMode(ViewMode::TreeAndList);
    bench.dataView.GetSplitter()->SimulateUserDrag(40);
    bench.dataView.SetViewMode(ViewMode::FlatList);
    static_cast<FlatListLayout*>(bench.dataView.GetCurrentView()->GetLayout())->SetSearchFieldVisible(false);
    const Bytes flatList = Written(bench.dataView);
    EXPECT_EQ(Bytes(flatList.begin(), flatList.begin() + 10), (Bytes {2, 0, 3, 0, 1, 0, 2, 0, 3, 0}));
    bench.dataView.SetViewMode(ViewMode(4));
    const Bytes noView = Written(bench.dataView);

    for (const Bytes& bytes : {noView, flatList}) {
        Bench second;
        Prepare(second);
        NK::MemoryIChannel channel(bytes);
        ASSERT_EQ(second.dataView.ReadState(channel), NK::NoError);
        EXPECT_EQ(Written(second.dataView), bytes);
        if (bytes == flatList) {
            EXPECT_EQ(second.dataView.GetCurrentView(), second.dataView.GetView(ViewMode::FlatList));
            EXPECT_FALSE(second.SearchField().IsVisible());
            second.dataView.SetViewMode(ViewMode::TreeAndList);
            EXPECT_EQ(second.Tree().GetRect().GetWidth(), TreeAndListLayout::defaultTreeWidth + 40);
        }
    }

    // A data view without views writes its mode alone, and reads it back.
    FolderedDataView bare;
    bare.CreateDefaultState();
    EXPECT_EQ(Written(bare), (Bytes {1, 0, 0, 0}));
    NK::MemoryIChannel modeOnly(Bytes {3, 0, 0, 0});
    EXPECT_EQ(bare.ReadState(modeOnly), NK::NoError);
    EXPECT_EQ(Written(bare), (Bytes {3, 0, 0, 0}));
}

TEST_F(DataViewStateTest, AStreamThatCannotBeReadReturnsItsErrorAndLeavesTheDataViewAsItWas)
{
    bench.dataView.SetViewMode(ViewMode::TreeAndList);
    bench.dataView.GetSplitter()->SimulateUserDrag(30);
    const Bytes before = Written(bench.dataView);

    Bytes foreign = before;  // a fourth view state, under a mode this data view lacks
    foreign[2] = 4;
    foreign.insert(foreign.begin() + 10, {7, 0});
    NK::MemoryIChannel unknownView(foreign);
    EXPECT_EQ(bench.dataView.ReadState(unknownView), NK::ErrMissingElement);
    for (NK::UIndex size : {NK::UIndex(0), NK::UIndex(3), NK::UIndex(9), before.size() - 1}) {
        NK::MemoryIChannel channel(Bytes(before.begin(), before.begin() + size));
        EXPECT_EQ(bench.dataView.ReadState(channel), NK::ErrChannelEnd) << size;
    }
    EXPECT_EQ(Written(bench.dataView), before);
    // Still working: the user can pick a folder and the list follows.
    bench.Tree().SimulateUserSelectNode(bench.dataView.GetTreeDataView()->GetNode(IdOf("Nibbles")));
    EXPECT_EQ(bench.ListRows(), "Muffins");
}

// A channel failing at the mode, the count, a view mode or inside a view state: its error comes
// back and nothing of the data view changes.
TEST_F(DataViewStateTest, AWriteOntoAFailingChannelReturnsItsError)
{
    const Bytes whole = Written(bench.dataView);
    for (std::size_t capacity : {std::size_t {0}, std::size_t {3}, std::size_t {7}, std::size_t {12}, whole.size() - 1}) {
        FailingOChannel channel(capacity);
        EXPECT_EQ(bench.dataView.WriteState(channel), FailingOChannel::WriteFailure) << capacity;
    }
    EXPECT_EQ(Written(bench.dataView), whole);
}

TEST_F(DataViewStateTest, StateOperationsReportMisuse)
{
    NK::AssertCapture capture;
    bench.dataView.CreateDefaultState();
    FolderedDataView bare;
    EXPECT_EQ(bare.GetState(), nullptr);
    NK::MemoryOChannel out;
    EXPECT_EQ(bare.WriteState(out), NK::ErrNullChannelOrElement);
    EXPECT_EQ(capture.GetExpressions(),
              (std::vector<std::string> {"state == nullptr", "state != nullptr", "state != nullptr"}));
    EXPECT_NE(bench.dataView.GetState(), nullptr);
}

}  // namespace
