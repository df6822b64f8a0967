#include "FDVTestModel.hpp"

#include "WZSources/CompoundControls/FolderedDataView/Views/WZCombinedTreeItemFilter.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZTreeItemFactory.hpp"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>
#include <string>

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
    // Songs(Albums(Jazz, Folk), Playlists(Morning)), Podcasts
    NK::Array<NK::Owner<ModelItem>> forest = BuildForest({
        {"Songs", {{"Albums", {{"Jazz", {}, {"blue note"}}, {"Folk", {}, {"folk tunes b-side"}}}}, {"Playlists", {{"Morning"}}}}},
        {"Podcasts", {}, {"talk shows"}},
    });
};

TEST_F(TreeItemFactoryTest, WithoutFilteringShowsTheWholeForestSortedPerLevel)
{
    EXPECT_EQ(Describe(Create(nullptr)), "Podcasts,Songs(Albums(Folk,Jazz),Playlists(Morning))");
    EXPECT_EQ(factory.created, 7);
}

TEST_F(TreeItemFactoryTest, ExcludedItemsTakeTheirSubtreeAlongUnvisited)
{
    StatusFilter filter({{"Albums", FilterStatus::Excluded}});
    EXPECT_EQ(Describe(Create(&filter)), "Podcasts,Songs(Playlists(Morning))");
    EXPECT_EQ(std::count(filter.asked.begin(), filter.asked.end(), "Jazz"), 0) << "children of an excluded item are not asked";
    EXPECT_EQ(factory.created, 4);
}

TEST_F(TreeItemFactoryTest, FoldersKeptForDescendantsOnlyWhenOneSurvives)
{
    using S = FilterStatus;
    StatusFilter filter({{"Songs", S::IncludedIfAnyChild}, {"Albums", S::IncludedIfAnyChild},
                         {"Playlists", S::IncludedIfAnyChild}, {"Jazz", S::IncludedIfAnyChild},
                         {"Morning", S::Excluded}, {"Podcasts", S::IncludedIfAnyChild}});
    EXPECT_EQ(Describe(Create(&filter)), "Songs(Albums(Folk))")
        << "a leaf kept only for its children is dropped; so is a folder whose children all go";

    StatusFilter included({{"Morning", S::Excluded}});
    EXPECT_EQ(Describe(Create(&included)), "Podcasts,Songs(Albums(Folk,Jazz),Playlists)")
        << "an included folder stays even when its children are filtered away";
}

TEST_F(TreeItemFactoryTest, SearchKeepsAMatchWithTheFoldersOnItsPath)
{
    TextSearchFilter search;
    search.SetSearchText("TUNES");
    EXPECT_EQ(Describe(Create(&search)), "Songs(Albums(Folk))");

    search.SetSearchText("b-side fol");
    EXPECT_EQ(Describe(Create(&search)), "Songs(Albums(Folk))") << "words in any order";

    search.SetSearchText("nothing like this");
    EXPECT_EQ(Describe(Create(&search)), "");

    search.SetSearchText("");
    EXPECT_EQ(Describe(Create(&search)), "Podcasts,Songs(Albums(Folk,Jazz))")
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
        std::map<std::string, TreeItemFactory::Filter::Status> {{"Songs", FilterStatus::Excluded}}, &deleted)));
    EXPECT_EQ(Describe(factory.CreateTree(ModelItem::ToPtrArray(forest))), "Podcasts");
    EXPECT_FALSE(deleted);
    factory.SetItemFilter(static_cast<const TreeItemFactory::Filter*>(nullptr));
    EXPECT_TRUE(deleted);
    EXPECT_EQ(Describe(factory.CreateTree(ModelItem::ToPtrArray(forest))), "Podcasts,Songs(Albums(Folk,Jazz),Playlists(Morning))");
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
    const ModelItem& jazz = *forest[0]->GetChildren()[0]->GetChildren()[0];  // search texts: "blue note"
    const ModelItem& albums = *forest[0]->GetChildren()[0];                  // no search texts
    TextSearchFilter search;
    search.SetSearchText("blue");

    struct Case {
        S itemStatus;
        const ModelItem* item;
        S expected;
    };
    const Case cases[] = {
        {S::Included, &jazz, S::Included},
        {S::Included, &albums, S::IncludedIfAnyChild},
        {S::IncludedIfAnyChild, &jazz, S::Excluded},
        {S::Excluded, &jazz, S::Excluded},
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
    EXPECT_EQ(WZ::Folderable::Views::CombinedTreeItemFilter(includeAll, excluding).GetStatus(jazz), S::Excluded);
}

// The default order is made from collation keys; it must agree with comparing pairs.
TEST_F(TreeItemFactoryTest, DefaultOrderAgreesWithNaturalComparisonOfNames)
{
    const std::vector<std::string> names = {
        "Track 10", "track 9", "Track 1", "TRACK 01 b", "Track -2", "Side A-A", "side a-b", "Étude",
        "Etude", "etude 2", "3D Audio", "3d audio 12", "_Archive", "Disc 100", "Disc 20", "Ωmega",
        "Zone", "zone 2", "Zone 10", "a", "A", "", " leading blank", "Box A-101", "Box A-99",
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
}

// A client's comparator may be no strict weak order: any order is then fine, but every item
// must come out exactly once and nothing may be read outside the level (checked under ASan).
TEST_F(TreeItemFactoryTest, AComparatorThatIsNoStrictWeakOrderNeverBreaksTheLevel)
{
    std::vector<Node> nodes;
    for (int i = 0; i < 1000; ++i)
        nodes.push_back(Node("song " + std::to_string(i % 7)));  // many equal names
    forest = BuildForest({Node("Albums", nodes)});
    std::mt19937 random(20261123);
    const std::pair<const char*, TreeItemFactory::ItemComparator> comparators[] = {
        {"<=", [](const TreeItem& a, const TreeItem& b) { return !(b.GetDisplayName() < a.GetDisplayName()); }},
        {"always", [](const TreeItem&, const TreeItem&) { return true; }},
        {"random", [&random](const TreeItem&, const TreeItem&) { return random() % 2 == 0; }},
    };
    for (const auto& [what, comparator] : comparators) {
        factory.SetItemComparator(comparator);
        const auto tree = Create(nullptr);
        ASSERT_EQ(tree.GetSize(), 1u) << what;
        std::set<const ModelItem*> models;
        for (const auto& song : tree[0]->GetChildren())
            models.insert(&song->GetModel());
        EXPECT_EQ(models.size(), 1000u) << what;
    }

    // A proper order on the first letter only keeps equal items in model order.
    forest = BuildForest({{"b2"}, {"a1"}, {"b1"}, {"a2"}});
    factory.SetItemComparator([](const TreeItem& a, const TreeItem& b) {
        return a.GetDisplayName().ToUtf8()[0] < b.GetDisplayName().ToUtf8()[0];
    });
    EXPECT_EQ(Describe(Create(nullptr)), "a1,a2,b2,b1");
}

TEST_F(TreeItemFactoryTest, NullEntriesAndNullRowsAreReportedAndLeftOut)
{
    struct NullForFolk : NameFactory {
        NK::Owner<TreeItem> CreateItem(const ModelItem& item) override
        {
            return AsNamed(item).GetName() == "Folk" ? nullptr : NameFactory::CreateItem(item);
        }
    } folkless;
    folkless.SetItemFilter(static_cast<const TreeItemFactory::Filter*>(nullptr));
    NK::Array<const ModelItem*> items = ModelItem::ToPtrArray(forest);
    items.Insert(1, nullptr);
    NK::AssertCapture asserts;
    EXPECT_EQ(Describe(folkless.CreateTree(items)), "Podcasts,Songs(Albums(Jazz),Playlists(Morning))");
    EXPECT_EQ(asserts.GetExpressions(), (std::vector<std::string> {"treeItem != nullptr", "item != nullptr"}));
}

// The build keeps its own stack; a call per level would overflow the call stack.
TEST_F(TreeItemFactoryTest, BuildsAChainTwoHundredThousandDeep)
{
    constexpr NK::UIndex Depth = 200000;
    forest.Clear();
    forest.Push(NK::NewOwned<NamedItem>("disc"));
    ModelItem* bottom = forest[0].Get();
    for (NK::UIndex level = 1; level < Depth; ++level) {
        auto next = NK::NewOwned<NamedItem>("disc", NK::Guid::FromNumber(2, level));
        ModelItem* added = next.Get();
        bottom->AddChild(std::move(next));
        bottom = added;
    }
    StatusFilter filter;
    const auto tree = Create(&filter);
    NK::UIndex depth = 0;
    for (const TreeItem* item = tree.IsEmpty() ? nullptr : tree[0].Get(); item != nullptr;
         item = item->GetChildren().IsEmpty() ? nullptr : item->GetChildren()[0].Get())
        ++depth;
    EXPECT_EQ(depth, Depth);
    EXPECT_EQ(factory.created, static_cast<int>(Depth));
}

}  // namespace
