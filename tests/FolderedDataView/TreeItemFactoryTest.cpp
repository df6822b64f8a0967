#include "FDVTestModel.hpp"

#include "WZSources/CompoundControls/FolderedDataView/Views/WZCombinedTreeItemFilter.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZTreeItemFactory.hpp"

#include <gtest/gtest.h>

#include <map>

namespace {

using namespace FDVTest;
using WZ::Folderable::FilterStatus;
using WZ::Folderable::TreeItem;
using WZ::Folderable::TreeItemFactory;

class NameFactory : public TreeItemFactory {
public:
    NK::Owner<TreeItem> CreateItem(const ModelItem& item) override
    {
        ++created;
        return NK::NewOwned<TreeItem>(item, NK::UniString(AsNamed(item).GetName()), NK::Optional<QM::Icon>(),
                                      QM::Font::Plain, NK::Optional<QM::Color>(), NK::Optional<QM::Color>(),
                                      NK::Optional<NK::UniString>());
    }
    int created = 0;
};

// Says what the test tells it per name (Included otherwise) and records whom it was asked about.
class StatusFilter : public TreeItemFactory::Filter {
public:
    StatusFilter(std::map<std::string, Status> statuses = {}, bool* deleted = nullptr)
        : statuses(std::move(statuses)), deleted(deleted)
    {
    }
    ~StatusFilter() override
    {
        if (deleted != nullptr)
            *deleted = true;
    }
    Status GetStatus(const ModelItem& item) const override
    {
        asked.push_back(AsNamed(item).GetName());
        auto it = statuses.find(AsNamed(item).GetName());
        return it != statuses.end() ? it->second : Status::Included;
    }
    std::map<std::string, Status> statuses;
    mutable std::vector<std::string> asked;
    bool* deleted;
};

class TextSearchFilter : public TreeItemFactory::SearchFilter {
public:
    NK::Array<NK::UniString> GetSearchTexts(const ModelItem& item) const override
    {
        NK::Array<NK::UniString> texts;
        for (const std::string& text : AsNamed(item).GetSearchTexts())
            texts.Push(NK::UniString(text));
        return texts;
    }
};

class TreeItemFactoryTest : public ::testing::Test {
protected:
    NK::Array<NK::Owner<TreeItem>> Create(const TreeItemFactory::Filter* filter)
    {
        factory.SetItemFilter(filter);
        return factory.CreateTree(ModelItem::ToPtrArray(forest));
    }

    NameFactory factory;
    // Project(Views(Plan, Section), Sheets(Cover)), Notes
    NK::Array<NK::Owner<ModelItem>> forest = BuildForest({
        {"Project", {{"Views", {{"Plan", {}, {"floor plan"}}, {"Section", {}, {"section a-a"}}}}, {"Sheets", {{"Cover"}}}}},
        {"Notes", {}, {"remarks"}},
    });
};

TEST_F(TreeItemFactoryTest, WithoutFilteringShowsTheWholeForestSortedPerLevel)
{
    EXPECT_EQ(Describe(Create(nullptr)), "Notes,Project(Sheets(Cover),Views(Plan,Section))");
    EXPECT_EQ(factory.created, 7);
}

TEST_F(TreeItemFactoryTest, ExcludedItemsTakeTheirSubtreeAlongUnvisited)
{
    StatusFilter filter({{"Views", FilterStatus::Excluded}});
    EXPECT_EQ(Describe(Create(&filter)), "Notes,Project(Sheets(Cover))");
    EXPECT_EQ(std::count(filter.asked.begin(), filter.asked.end(), "Plan"), 0) << "children of an excluded item are not asked";
    EXPECT_EQ(factory.created, 4);
}

TEST_F(TreeItemFactoryTest, FoldersKeptForDescendantsOnlyWhenOneSurvives)
{
    using S = FilterStatus;
    StatusFilter filter({{"Project", S::IncludedIfAnyChild}, {"Views", S::IncludedIfAnyChild},
                         {"Sheets", S::IncludedIfAnyChild}, {"Plan", S::IncludedIfAnyChild},
                         {"Cover", S::Excluded}, {"Notes", S::IncludedIfAnyChild}});
    EXPECT_EQ(Describe(Create(&filter)), "Project(Views(Section))")
        << "a leaf kept only for its children is dropped; so is a folder whose children all go";

    StatusFilter included({{"Cover", S::Excluded}});
    EXPECT_EQ(Describe(Create(&included)), "Notes,Project(Sheets,Views(Plan,Section))")
        << "an included folder stays even when its children are filtered away";
}

TEST_F(TreeItemFactoryTest, SearchKeepsAMatchWithTheFoldersOnItsPath)
{
    TextSearchFilter search;
    search.SetSearchText("SECTION");
    EXPECT_EQ(Describe(Create(&search)), "Project(Views(Section))");

    search.SetSearchText("a-a sec");
    EXPECT_EQ(Describe(Create(&search)), "Project(Views(Section))") << "words in any order";

    search.SetSearchText("nothing like this");
    EXPECT_EQ(Describe(Create(&search)), "");

    search.SetSearchText("");
    EXPECT_EQ(Describe(Create(&search)), "Notes,Project(Views(Plan,Section))")
        << "an empty search finds every item with search texts; folders without texts stay for them";
}

TEST_F(TreeItemFactoryTest, SortsEachLevelWithTheComparator)
{
    forest = BuildForest({{"item 10", {{"b"}, {"C"}, {"a"}}}, {"Item 2"}, {"item 1"}});
    EXPECT_EQ(Describe(Create(nullptr)), "item 1,Item 2,item 10(a,b,C)") << "natural order, case ignored";

    factory.SetItemComparator([](const TreeItem& a, const TreeItem& b) { return b.GetDisplayName() < a.GetDisplayName(); });
    EXPECT_EQ(Describe(Create(nullptr)), "item 10(b,a,C),item 1,Item 2");

    factory.SetItemComparator({});
    EXPECT_EQ(Describe(Create(nullptr)), "item 10(b,C,a),Item 2,item 1") << "no comparator: model order";
}

TEST_F(TreeItemFactoryTest, OwnsAnOwnedFilterUntilReplaced)
{
    bool deleted = false;
    factory.SetItemFilter(NK::Owner<TreeItemFactory::Filter>(NK::NewOwned<StatusFilter>(
        std::map<std::string, TreeItemFactory::Filter::Status> {{"Project", FilterStatus::Excluded}}, &deleted)));
    EXPECT_EQ(Describe(factory.CreateTree(ModelItem::ToPtrArray(forest))), "Notes");
    EXPECT_FALSE(deleted);
    factory.SetItemFilter(static_cast<const TreeItemFactory::Filter*>(nullptr));
    EXPECT_TRUE(deleted);
    EXPECT_EQ(Describe(factory.CreateTree(ModelItem::ToPtrArray(forest))), "Notes,Project(Sheets(Cover),Views(Plan,Section))");
}

TEST_F(TreeItemFactoryTest, BuildingWithoutAnyFilterIsReportedAndStops)
{
    NK::AssertCapture asserts;
    UnreachableThrows stops;
    EXPECT_THROW(factory.CreateTree(ModelItem::ToPtrArray(forest)), UnreachableThrows::Stopped);
    ASSERT_GE(asserts.GetReports().size(), 1u);
    EXPECT_EQ(asserts.GetReports()[0].expression, "!std::holds_alternative<std::monostate> (itemFilter)");
    EXPECT_EQ(asserts.GetReports()[0].location.function, "WZ::Folderable::TreeItemFactory::GetItemFilterPtr");
    EXPECT_EQ(factory.created, 0);
}

TEST_F(TreeItemFactoryTest, CombinedFilterNeedsTheItemFilterToIncludeExactly)
{
    using S = FilterStatus;
    const ModelItem& plan = *forest[0]->GetChildren()[0]->GetChildren()[0];  // search texts: "floor plan"
    const ModelItem& views = *forest[0]->GetChildren()[0];                   // no search texts
    TextSearchFilter search;
    search.SetSearchText("plan");

    struct Case {
        S itemStatus;
        const ModelItem* item;
        S expected;
    };
    const Case cases[] = {
        {S::Included, &plan, S::Included},
        {S::Included, &views, S::IncludedIfAnyChild},
        {S::IncludedIfAnyChild, &plan, S::Excluded},
        {S::Excluded, &plan, S::Excluded},
    };
    for (const Case& c : cases) {
        StatusFilter itemFilter({{AsNamed(*c.item).GetName(), c.itemStatus}});
        WZ::Folderable::Views::CombinedTreeItemFilter combined(itemFilter, search);
        EXPECT_EQ(combined.GetStatus(*c.item), c.expected)
            << AsNamed(*c.item).GetName() << " with item status " << static_cast<int>(c.itemStatus);
    }

    // A search filter that excludes wins over an including item filter.
    struct Excluding : TextSearchFilter {
        Status GetStatus(const ModelItem&) const override { return Status::Excluded; }
    } excluding;
    StatusFilter includeAll;
    EXPECT_EQ(WZ::Folderable::Views::CombinedTreeItemFilter(includeAll, excluding).GetStatus(plan), S::Excluded);
}

// The default order is made from collation keys; it must agree with comparing pairs.
TEST_F(TreeItemFactoryTest, DefaultOrderAgreesWithNaturalComparisonOfNames)
{
    const std::vector<std::string> names = {
        "Level 10", "level 9", "Level 1", "LEVEL 01 b", "Level -2", "Section A-A", "section a-b", "Élévation",
        "Elevation", "elevation 2", "3D View", "3d view 12", "_Archive", "Detail 100", "Detail 20", "Ωmega",
        "Zone", "zone 2", "Zone 10", "a", "A", "", " leading blank", "Sheet A-101", "Sheet A-99",
    };
    std::vector<Node> nodes;
    for (const std::string& name : names)
        nodes.push_back(Node(name));
    forest = BuildForest(nodes);

    const auto tree = Create(nullptr);
    ASSERT_EQ(tree.GetSize(), names.size());
    for (NK::UIndex i = 1; i < tree.GetSize(); ++i)
        EXPECT_FALSE(NK::NaturalIsLess(tree[i]->GetDisplayName(), tree[i - 1]->GetDisplayName(), 1))
            << tree[i]->GetDisplayName() << " sorted after " << tree[i - 1]->GetDisplayName();

    // The same comparison through a comparator of the client's sorts pair by pair.
    factory.SetItemComparator([](const TreeItem& a, const TreeItem& b) { return TreeItemFactory::CompareDisplayNames(a, b); });
    const auto pairwise = Create(nullptr);
    for (NK::UIndex i = 0; i < tree.GetSize(); ++i)
        EXPECT_EQ(NK::NaturalCompare(tree[i]->GetDisplayName(), pairwise[i]->GetDisplayName(), 1), 0)
            << tree[i]->GetDisplayName() << " / " << pairwise[i]->GetDisplayName() << " at " << i;
}

}  // namespace
