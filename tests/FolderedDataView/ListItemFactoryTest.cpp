#include "FDVTestModel.hpp"

#include "NK/NKLogLine.hpp"
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
        {"wall", {}, {"Wall", "exterior brick"}},
        {"door", {}, {"Door single"}},
        {"slab", {}, {}},
        {"window", {}, {"Window", "double hung"}},
        {"beam", {}, {"Beam steel"}},
    });
    NK::Array<const ModelItem*> items = ModelItem::ToPtrArray(forest);
};

TEST_F(ListItemFactoryTest, CreatesSortedRowsForTheItemsTheFilterIncludes)
{
    SortByName();
    EXPECT_EQ(CreateRowNames(items), "beam door slab wall window");

    factory.SetFilter(NK::NewOwned<StatusFilter>(std::map<std::string, FilterStatus> {
        {"door", FilterStatus::Excluded}, {"slab", FilterStatus::IncludedIfAnyChild}}));
    EXPECT_EQ(CreateRowNames(items), "beam wall window") << "a flat list shows only included items";
}

TEST_F(ListItemFactoryTest, FilterKeepsTheIncludedItemsInInputOrder)
{
    StatusFilter filter({{"wall", FilterStatus::IncludedIfAnyChild}, {"window", FilterStatus::Excluded}});
    EXPECT_EQ(Names(filter.FilterItems(items)), "door slab beam");
}

TEST_F(ListItemFactoryTest, WithoutAComparatorRowsAreReportedAndKeepFilterOrder)
{
    NK::AssertCapture asserts;
    NK::LogCapture log;
    EXPECT_EQ(CreateRowNames(items), "wall door slab window beam");
    ASSERT_EQ(asserts.GetReports().size(), 1u);
    EXPECT_EQ(asserts.GetReports()[0].expression, "comparator != nullptr");
    EXPECT_EQ(asserts.GetReports()[0].location.function, "WZ::Folderable::ListItemFactory::CreateItems");
    ASSERT_EQ(log.GetRecords().size(), 1u);
    EXPECT_TRUE(log.GetRecords()[0].text.starts_with(
        "WZLib error assertion failed at WZSources\\CompoundControls\\FolderedDataView\\WZFolderableListBox "));
}

TEST_F(ListItemFactoryTest, SearchFilterFindsItemsByAllWordsOfTheirJoinedTexts)
{
    TextSearchFilter search("BRICK wall");
    EXPECT_EQ(Names(search.FilterItems(items)), "wall") << "words found across two texts, case ignored";

    search.SetSearchText("r");
    EXPECT_EQ(Names(search.FilterItems(items)), "wall door") << "input order is kept";

    search.SetSearchText("  ");
    EXPECT_EQ(Names(search.FilterItems(items)), "wall door window beam")
        << "a blank search finds every item that has search texts";
}

TEST_F(ListItemFactoryTest, AnItemWithoutSearchTextsIsNeverFound)
{
    for (const char* text : {"", "slab", "s", " "}) {
        TextSearchFilter search(text);
        const auto found = search.FilterItems(items);
        EXPECT_FALSE(found.Contains(forest[2].Get())) << "search text '" << text << "'";
    }
    EXPECT_FALSE(SearchFilter::IsMatching("", {}));
}

TEST_F(ListItemFactoryTest, SearchFilterInTheFactoryNarrowsTheRows)
{
    SortByName();
    factory.SetFilter(NK::NewOwned<TextSearchFilter>("e"));
    EXPECT_EQ(CreateRowNames(items), "beam door wall window");
    factory.SetFilter(NK::NewOwned<TextSearchFilter>("double"));
    EXPECT_EQ(CreateRowNames(items), "window");
}

TEST_F(ListItemFactoryTest, JoinsSearchTextsWithSingleSpaces)
{
    EXPECT_EQ(SearchFilter::ConcatenateSearchTexts({"a", "", "c "}), NK::UniString("a  c "));
    EXPECT_EQ(SearchFilter::matchingEntryKey.ToString(), "{4B10ACFE-87EE-48CD-BD50-C3B423B85882}");

    EXPECT_TRUE(SearchFilter::IsMatching("hung window", {"Window", "double hung"}));
    EXPECT_TRUE(SearchFilter::IsMatching("w d", {"Window", "double hung"})) << "the joining space is no barrier";
    EXPECT_FALSE(SearchFilter::IsMatching("wd", {"Window", "double hung"}));
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
