#include "FDVTestModel.hpp"

#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataViewObserver.hpp"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using namespace FDVTest;
using WZ::Folderable::FolderedDataView;
using WZ::Folderable::FolderedDataViewObserver;
using WZ::Folderable::Selection;
using WZ::Folderable::SelectionChangeGuard;

// A view whose "control" is an in-memory selection. Like a toolkit control it reports every
// intermediate step of a change (cleared, then each item added) while selection handling is on.
class TestView : public WZ::Folderable::Views::View {
public:
    void EnableSelectionHandling() override { handling = true, ++enabled; }
    void DisableSelectionHandling() override { handling = false; }
    Selection GetSelection() const override { return Selection(shown); }
    void SetSelection(const Selection& selection) override
    {
        Show({}), Report();
        for (const ModelItem* item : selection.GetItems())
            shown.Push(item), ids.Push(item->GetId()), Report();
    }
    // Rebuilds with handling off, then selects again, by id, the shown items still in the forest.
    void Refresh() override
    {
        DisableSelectionHandling();
        ++refreshes;
        NK::Array<const ModelItem*> kept;
        for (const NK::Guid& id : ids)
            if (const ModelItem* found = WZ::Folderable::FindModelItemById(*GetCurrentItems(), id))
                kept.Push(found);
        Show(kept);
    }
    // A selection change the user makes in the control.
    void UserSelects(const Selection& selection) { Show(selection.GetItems()), Report(); }

    NK::Array<const ModelItem*> shown;
    NK::Array<NK::Guid> ids;  // of the shown items, which a new forest may have deleted
    bool handling = true;
    int enabled = 0;
    int refreshes = 0;

private:
    void Show(const NK::Array<const ModelItem*>& items)
    {
        shown = items;
        ids.Clear();
        for (const ModelItem* item : items)
            ids.Push(item->GetId());
    }
    void Report()
    {
        if (handling)
            SendSelectionChangedEvent();
    }
};

class Recorder : public FolderedDataViewObserver {
public:
    using FolderedDataViewObserver::FolderedDataViewObserver;
    void SelectionChanged(const Selection& selection) override { events.push_back(selection); }
    std::vector<Selection> events;
};

class SelectionGuardTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        auto owned = NK::NewOwned<TestView>();
        view = owned.Get();
        dataView.RegisterView(FolderedDataView::ViewMode::Initial, std::move(owned));
        dataView.SetItems(BuildForest({{"Desserts", {{"Tart"}, {"Flan"}}}, {"Breads"}}));
        recorder.events.clear();
        view->enabled = 0;
    }
    const ModelItem* Item(const char* name) const
    {
        return WZ::Folderable::FindModelItemById(dataView.GetItems(), IdOf(name));
    }

    FolderedDataView dataView;
    TestView* view = nullptr;
    Recorder recorder {dataView};
};

TEST(SelectionTest, EqualOnlyWithTheSameItemsInTheSameOrder)
{
    NamedItem a {"a"}, b {"b"}, aTwin {"a"};
    EXPECT_EQ(Selection({&a, &b}), Selection({&a, &b}));
    EXPECT_NE(Selection({&a, &b}), Selection({&b, &a}));
    EXPECT_NE(Selection({&a}), Selection({&aTwin})) << "addresses count, not ids";
    EXPECT_NE(Selection({&a}), Selection({&a, &b}));
}

TEST_F(SelectionGuardTest, UserChangesNotifyAtOnceAndASetSelectionBurstOnce)
{
    Recorder second {dataView};
    view->UserSelects({Item("Tart")});
    EXPECT_EQ(second.events.size(), 1u) << "every attached observer hears it";
    dataView.DetachFolderedDataViewObserver(second);

    dataView.SetSelection({Item("Tart"), Item("Breads")});  // the view reports three steps
    dataView.SetSelection({Item("Tart"), Item("Breads")});  // already shown: nothing
    EXPECT_EQ(recorder.events, (std::vector<Selection> {Selection({Item("Tart")}), Selection({Item("Tart"), Item("Breads")})}));
    EXPECT_EQ(second.events.size(), 1u);
}

TEST_F(SelectionGuardTest, NestedGuardsSendOneEventWithTheFinalSelection)
{
    {
        auto guard = dataView.CreateSelectionGuard();
        EXPECT_TRUE(guard->IsFirst());
        dataView.SetSelection({Item("Tart")});
        view->UserSelects({Item("Desserts")});
        dataView.SetSelection({Item("Flan")});
        EXPECT_TRUE(recorder.events.empty());
        EXPECT_EQ(view->enabled, 0) << "only the outermost guard switches handling on";
    }
    EXPECT_EQ(recorder.events, std::vector<Selection> {Selection({Item("Flan")})});
    EXPECT_EQ(view->enabled, 1);
    {
        auto guard = dataView.CreateSelectionGuard();
        dataView.SetSelection({Item("Tart"), Item("Breads")});
        dataView.SetSelection({Item("Flan")});
    }
    EXPECT_EQ(recorder.events.size(), 1u) << "a selection back at its start sends nothing";
}

TEST_F(SelectionGuardTest, WithoutACurrentViewGuardsSendNothing)
{
    FolderedDataView empty;
    Recorder listener {empty};
    empty.RegisterView(FolderedDataView::ViewMode::TreeAndList, NK::NewOwned<TestView>());  // not the current mode
    {
        auto guard = empty.CreateSelectionGuard();
        empty.SetItems(BuildForest({{"A"}}));
        empty.SetSelection({Item("Tart")});
    }
    EXPECT_EQ(empty.GetCurrentView(), nullptr);
    EXPECT_FALSE(empty.IsSelectionGuardActive());
    EXPECT_TRUE(empty.GetSelection().IsEmpty());
    EXPECT_TRUE(listener.events.empty());
}

TEST_F(SelectionGuardTest, RefreshKeepingTheSelectionSendsNothingAndLosingItSendsOneEvent)
{
    dataView.SetSelection({Item("Tart"), Item("Breads")});
    recorder.events.clear();

    dataView.Refresh();
    EXPECT_TRUE(recorder.events.empty());
    EXPECT_TRUE(view->handling) << "the guard switched selection handling back on";
    // The same ids in a new forest are new items: the reselected items are other addresses.
    dataView.SetItems(BuildForest({{"Desserts", {{"Tart"}}}, {"Breads"}}));
    const Selection reselected({Item("Tart"), Item("Breads")});
    dataView.SetItems(BuildForest({{"Other"}}));
    EXPECT_EQ(recorder.events, (std::vector<Selection> {reselected, Selection()}));
    EXPECT_EQ(view->refreshes, 4);
}

TEST_F(SelectionGuardTest, MisregisteredNestedGuardsAreReported)
{
    NK::AssertCapture asserts;
    auto outer = dataView.CreateSelectionGuard();
    auto inner = dataView.CreateSelectionGuard();
    EXPECT_FALSE(inner->IsFirst());
    auto& first = static_cast<SelectionChangeGuard::FirstGuardImpl&>(outer->GetImpl());
    first.RegisterNested(&inner->GetImpl());
    first.UnregisterNested(&first);
    EXPECT_EQ(first.GetNestedGuardCount(), 1u);
    EXPECT_EQ(asserts.GetExpressions(), (std::vector<std::string> {"nestedGuards.Add (impl)", "nestedGuards.Delete (impl)"}));
    inner.Clear();
    EXPECT_EQ(first.GetNestedGuardCount(), 0u);
}

// An observer that throws while the outermost guard is released would otherwise throw out of a
// destructor and end the program.
TEST_F(SelectionGuardTest, AnObserverThatThrowsIsReportedAndTheOthersStillHear)
{
    struct Throwing : FolderedDataViewObserver {
        using FolderedDataViewObserver::FolderedDataViewObserver;
        void SelectionChanged(const Selection&) override
        {
            if (++calls == 1)
                throw std::runtime_error("observer failed");
            throw 42;
        }
        int calls = 0;
    };
    dataView.DetachFolderedDataViewObserver(recorder);
    Throwing throwing {dataView};
    dataView.AttachFolderedDataViewObserver(recorder);
    NK::AssertCapture asserts;

    dataView.SetSelection({Item("Tart")});      // released by a guard's destructor
    view->UserSelects({Item("Breads")});        // told at once, outside any guard
    EXPECT_EQ(throwing.calls, 2);
    ASSERT_EQ(recorder.events.size(), 2u) << "the observer after the throwing one";
    EXPECT_EQ(recorder.events[1], Selection({Item("Breads")}));
    EXPECT_EQ(asserts.GetExpressions(),
              (std::vector<std::string> {"selection callback threw: observer failed",
                                         "selection callback threw: an exception that is no std::exception"}));
    EXPECT_FALSE(dataView.IsSelectionGuardActive());
}

using SelectionGuardDeathTest = SelectionGuardTest;

TEST_F(SelectionGuardDeathTest, ReleasingTheFirstGuardBeforeAnInnerOneStops)
{
    EXPECT_DEATH(
        {
            auto outer = dataView.CreateSelectionGuard();
            auto inner = dataView.CreateSelectionGuard();
            outer.Clear();
        },
        "nestedGuards.IsEmpty");
}

}  // namespace
