#include "FDVTestModel.hpp"

#include "WZSources/CompoundControls/FolderedDataView/WZFolderableListBox.hpp"

#include <gtest/gtest.h>

#include <map>
#include <memory>

namespace {

using namespace FDVTest;
using WZ::Folderable::FilterStatus;
using WZ::Folderable::ListBoxItem;
using WZ::Folderable::ListItemFactory;
using SearchFilter = WZ::Folderable::ListItemFactory::SearchFilter;

class Row : public ListBoxItem {
public:
    explicit Row(const NamedItem& model) : ListBoxItem(model.GetId()), name(model.GetName()) {}
    bool IsEqual(const WZ::Diffable& other) const override
    {
        const auto* row = dynamic_cast<const Row*>(&other);
        return row != nullptr && row->name == name;
    }
    std::string name;
};

class RowFactory : public ListItemFactory {
public:
    const ListBoxItem* CreateItem(const ModelItem& item) override { return new Row(AsNamed(item)); }
};

class StatusFilter : public ListItemFactory::Filter {
public:
    explicit StatusFilter(std::map<std::string, Status> statuses) : statuses(std::move(statuses)) {}
    Status GetStatus(const ModelItem& item) const override
    {
        auto it = statuses.find(AsNamed(item).GetName());
        return it != statuses.end() ? it->second : Status::Included;
    }
    std::map<std::string, Status> statuses;
};

class TextSearchFilter : public SearchFilter {
public:
    using SearchFilter::SearchFilter;
    NK::Array<NK::UniString> GetSearchTexts(const ModelItem& item) const override
    {
        NK::Array<NK::UniString> texts;
        for (const std::string& text : AsNamed(item).GetSearchTexts())
            texts.Push(NK::UniString(text));
        return texts;
    }
};

class ListItemFactoryTest : public ::testing::Test {
protected:
    // The rows' names in order; the rows are deleted, as the list's updater would.
    std::string CreateRowNames(const NK::Array<const ModelItem*>& items)
    {
        std::string names;
        for (const ListBoxItem* item : factory.CreateItems(items)) {
            std::unique_ptr<const ListBoxItem> row(item);
            names += (names.empty() ? "" : " ") + static_cast<const Row&>(*row).name;
        }
        return names;
    }

    void SortByName()
    {
        factory.SetComparator([](const ListBoxItem* a, const ListBoxItem* b) {
            return static_cast<const Row*>(a)->name < static_cast<const Row*>(b)->name;
        });
    }

    RowFactory factory;
    NK::Array<NK::Owner<ModelItem>> forest = BuildForest({
        {"soup", {}, {"Soup", "tomato basil"}},
        {"bread", {}, {"Bread rye"}},
        {"salad", {}, {}},
        {"stew", {}, {"Stew", "beef slow"}},
        {"cake", {}, {"Cake lemon"}},
    });
    NK::Array<const ModelItem*> items = ModelItem::ToPtrArray(forest);
};

TEST_F(ListItemFactoryTest, CreatesSortedRowsForTheItemsTheFilterIncludes)
{
    SortByName();
    EXPECT_EQ(CreateRowNames(items), "bread cake salad soup stew");

    factory.SetFilter(NK::NewOwned<StatusFilter>(std::map<std::string, FilterStatus> {
        {"bread", FilterStatus::Excluded}, {"salad", FilterStatus::IncludedIfAnyChild}}));
    EXPECT_EQ(CreateRowNames(items), "cake soup stew") << "a flat list shows only included items";
    StatusFilter filter({{"soup", FilterStatus::IncludedIfAnyChild}, {"stew", FilterStatus::Excluded}});
    EXPECT_EQ(Names(filter.FilterItems(items)), "bread salad cake") << "the filter keeps the input order";
}

// The factory sorts from the order it made last time; whatever came before, each result must be
// the comparator's order: a subset, a changed order of the same rows, rows added among them.
TEST_F(ListItemFactoryTest, EveryResultIsInTheComparatorsCurrentOrder)
{
    std::map<std::string, int> position;
    factory.SetComparator([&position](const ListBoxItem* a, const ListBoxItem* b) {
        return position[static_cast<const Row*>(a)->name] < position[static_cast<const Row*>(b)->name];
    });
    auto more = BuildForest({{"pie"}, {"tart"}, {"jam"}});
    NK::Array<const ModelItem*> all = items;
    all.Append(ModelItem::ToPtrArray(more));
    const NK::Array<const ModelItem*> some {items[4], items[0], items[3]};
    struct Step {
        const NK::Array<const ModelItem*>& given;
        std::vector<std::string> order;
        std::string expected;
    } steps[] = {
        {items, {"soup", "bread", "salad", "stew", "cake"}, "soup bread salad stew cake"},
        {some, {"soup", "bread", "salad", "stew", "cake"}, "soup stew cake"},
        {items, {"soup", "bread", "salad", "stew", "cake"}, "soup bread salad stew cake"},
        {items, {"cake", "stew", "salad", "bread", "soup"}, "cake stew salad bread soup"},
        {some, {"stew", "cake", "soup"}, "stew cake soup"},
        {all, {"jam", "cake", "pie", "stew", "salad", "tart", "bread", "soup"}, "jam cake pie stew salad tart bread soup"},
        {items, {"jam", "cake", "pie", "stew", "salad", "tart", "bread", "soup"}, "cake stew salad bread soup"},
    };
    int number = 0;
    for (const Step& step : steps) {
        for (std::size_t i = 0; i < step.order.size(); ++i)
            position[step.order[i]] = static_cast<int>(i);
        EXPECT_EQ(CreateRowNames(step.given), step.expected) << "step " << number++;
    }
}

// Null model items, given to the factory or to a filter, and null rows from CreateItem are
// reported once per call and left out; the other items are handled as if they came alone.
TEST_F(ListItemFactoryTest, NullItemsAndRowsAreReportedAndLeftOut)
{
    SortByName();
    const NK::Array<const ModelItem*> withNulls {nullptr, items[0], nullptr, items[4]};
    NK::AssertCapture asserts;
    EXPECT_EQ(CreateRowNames(withNulls), "cake soup");
    EXPECT_EQ(Names(StatusFilter({}).FilterItems(withNulls)), "soup cake");
    EXPECT_EQ(Names(TextSearchFilter("o").FilterItems(withNulls)), "soup cake");
    EXPECT_EQ(Names(TextSearchFilter("").FilterItems(withNulls)), "soup cake");
    EXPECT_EQ(asserts.GetExpressions(), std::vector<std::string>(4, "items hold no null model item"));

    struct NoRowForStew : RowFactory {
        const ListBoxItem* CreateItem(const ModelItem& item) override
        {
            return AsNamed(item).GetName() == "stew" ? nullptr : RowFactory::CreateItem(item);
        }
    } partial;
    partial.SetComparator([](const ListBoxItem*, const ListBoxItem*) { return false; });
    asserts.Clear();
    NK::Array<const ListBoxItem*> rows = partial.CreateItems(items);
    EXPECT_EQ(rows.GetSize(), 4u);
    for (const ListBoxItem* row : rows)
        delete row;
    EXPECT_EQ(asserts.GetExpressions(), (std::vector<std::string> {"CreateItem makes a row of every filtered item"}));
}

TEST_F(ListItemFactoryTest, WithoutAComparatorRowsAreReportedAndKeepFilterOrder)
{
    NK::AssertCapture asserts;
    EXPECT_EQ(CreateRowNames(items), "soup bread salad stew cake");
    EXPECT_EQ(asserts.GetExpressions(), (std::vector<std::string> {"comparator != nullptr"}));
}

TEST_F(ListItemFactoryTest, SearchFilterFindsItemsByAllWordsOfTheirJoinedTexts)
{
    TextSearchFilter search("BASIL soup");
    EXPECT_EQ(Names(search.FilterItems(items)), "soup") << "words found across two texts, case ignored";

    search.SetSearchText("o");
    EXPECT_EQ(Names(search.FilterItems(items)), "soup stew cake") << "input order is kept";

    search.SetSearchText("  ");
    EXPECT_EQ(Names(search.FilterItems(items)), "soup bread stew cake")
        << "a blank search finds every item that has search texts";
    for (const char* text : {"", "salad", "s", " "}) {
        search.SetSearchText(text);
        EXPECT_FALSE(search.FilterItems(items).Contains(forest[2].Get())) << "no search texts, never found: '" << text << "'";
    }

    SortByName();
    factory.SetFilter(NK::NewOwned<TextSearchFilter>("e"));
    EXPECT_EQ(CreateRowNames(items), "bread cake stew") << "a search filter in the factory";
}

TEST_F(ListItemFactoryTest, MatchingJoinsSearchTextsWithSingleSpaces)
{
    EXPECT_EQ(SearchFilter::ConcatenateSearchTexts({"a", "", "c "}), NK::UniString("a  c "));
    EXPECT_TRUE(SearchFilter::IsMatching("basil tomato", {"Soup", "tomato basil"}));
    EXPECT_TRUE(SearchFilter::IsMatching("p t", {"Soup", "tomato basil"})) << "the joining space is no barrier";
    EXPECT_FALSE(SearchFilter::IsMatching("pt", {"Soup", "tomato basil"}));
    EXPECT_FALSE(SearchFilter::IsMatching("", {}));
}

TEST_F(ListItemFactoryTest, ABaseFactoryCannotCreateRows)
{
    ListItemFactory base;
    base.SetComparator([](const ListBoxItem*, const ListBoxItem*) { return false; });
    UnreachableThrows stops;
    NK::AssertCapture asserts;
    EXPECT_THROW(base.CreateItems(items), UnreachableThrows::Stopped);
    EXPECT_TRUE(base.CreateItems({}).IsEmpty()) << "nothing to create, nothing to stop for";
}

}  // namespace
