#include "FDVTestModel.hpp"

#include "WZSources/CompoundControls/FolderedDataView/Views/WZCombinedTreeItemFilter.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZTreeItemFactory.hpp"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>
#include <string>
#include <tuple>

namespace {

using namespace FDVTest;
using WZ::Folderable::FilterStatus;
using S = FilterStatus;
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

TEST_F(TreeItemFactoryTest, FiltersDecideWhichItemsAndFoldersAreShown)
{
    StatusFilter excluded({{"Albums", S::Excluded}});
    StatusFilter ifAnyChild({{"Songs", S::IncludedIfAnyChild}, {"Albums", S::IncludedIfAnyChild},
                             {"Playlists", S::IncludedIfAnyChild}, {"Jazz", S::IncludedIfAnyChild},
                             {"Morning", S::Excluded}, {"Podcasts", S::IncludedIfAnyChild}});
    StatusFilter leafExcluded({{"Morning", S::Excluded}});
    TextSearchFilter tunes, anyOrder, nothing, empty;
    tunes.SetSearchText("TUNES");
    anyOrder.SetSearchText("b-side fol");
    nothing.SetSearchText("nothing like this");
    empty.SetSearchText("");
    const std::pair<const TreeItemFactory::Filter*, const char*> cases[] = {
        {nullptr, "Podcasts,Songs(Albums(Folk,Jazz),Playlists(Morning))"},
        {&excluded, "Podcasts,Songs(Playlists(Morning))"},
        // A leaf kept only for its children goes; so does a folder whose children all go.
        {&ifAnyChild, "Songs(Albums(Folk))"},
        {&leafExcluded, "Podcasts,Songs(Albums(Folk,Jazz),Playlists)"},
        {&tunes, "Songs(Albums(Folk))"},
        {&anyOrder, "Songs(Albums(Folk))"},
        {&nothing, ""},
        // Every item with search texts matches; folders without texts stay for them.
        {&empty, "Podcasts,Songs(Albums(Folk,Jazz))"},
    };
    for (const auto& [filter, expected] : cases)
        EXPECT_EQ(Describe(Create(filter)), expected);
    EXPECT_EQ(std::count(excluded.asked.begin(), excluded.asked.end(), "Jazz"), 0) << "an excluded subtree is not visited";
}

// The default order is natural and ignores case; it is made from collation keys and must agree
// with comparing pairs. A client's comparator replaces it, and equal items keep model order.
TEST_F(TreeItemFactoryTest, SortsEachLevelNaturallyOrWithTheComparator)
{
    forest = BuildForest({{"item 10", {{"b"}, {"C"}, {"a"}}}, {"Item 2"}, {"item 1"}});
    EXPECT_EQ(Describe(Create(nullptr)), "item 1,Item 2,item 10(a,b,C)");

    std::vector<Node> nodes;
    for (const char* name : {"Track 10", "track 9", "TRACK 01 b", "Track -2", "side a-b", "Side A-A", "Étude", "Etude", "etude 2",
                             "3d audio 12", "_Archive", "Ωmega", "a", "A", "", " leading blank", "Box A-101", "Box A-99"})
        nodes.push_back(Node(name));
    forest = BuildForest(nodes);
    const auto tree = Create(nullptr);
    ASSERT_EQ(tree.GetSize(), nodes.size());
    for (NK::UIndex i = 1; i < tree.GetSize(); ++i)
        EXPECT_FALSE(NK::NaturalIsLess(tree[i]->GetDisplayName(), tree[i - 1]->GetDisplayName(), 1))
            << tree[i]->GetDisplayName() << " sorted after " << tree[i - 1]->GetDisplayName();

    forest = BuildForest({{"item 10", {{"b"}, {"C"}, {"a"}}}, {"Item 2"}, {"item 1"}});
    factory.SetItemComparator([](const TreeItem& a, const TreeItem& b) { return b.GetDisplayName() < a.GetDisplayName(); });
    EXPECT_EQ(Describe(Create(nullptr)), "item 10(b,a,C),item 1,Item 2");
    factory.SetItemComparator({});
    EXPECT_EQ(Describe(Create(nullptr)), "item 10(b,C,a),Item 2,item 1") << "no comparator: model order";

    forest = BuildForest({{"b2"}, {"a1"}, {"b1"}, {"a2"}});
    factory.SetItemComparator([](const TreeItem& a, const TreeItem& b) {
        return a.GetDisplayName().ToUtf8()[0] < b.GetDisplayName().ToUtf8()[0];
    });
    EXPECT_EQ(Describe(Create(nullptr)), "a1,a2,b2,b1");
}

TEST_F(TreeItemFactoryTest, OwnsAnOwnedFilterUntilReplacedAndStopsWithoutAny)
{
    {
        NK::AssertCapture asserts;
        UnreachableThrows stops;
        EXPECT_THROW(factory.CreateTree(ModelItem::ToPtrArray(forest)), UnreachableThrows::Stopped);
        EXPECT_EQ(asserts.GetExpressions().at(0), "!std::holds_alternative<std::monostate> (itemFilter)");
        EXPECT_EQ(factory.created, 0);
    }
    bool deleted = false;
    factory.SetItemFilter(NK::Owner<TreeItemFactory::Filter>(
        NK::NewOwned<StatusFilter>(std::map<std::string, S> {{"Songs", S::Excluded}}, &deleted)));
    EXPECT_EQ(Describe(factory.CreateTree(ModelItem::ToPtrArray(forest))), "Podcasts");
    EXPECT_FALSE(deleted);
    factory.SetItemFilter(static_cast<const TreeItemFactory::Filter*>(nullptr));
    EXPECT_TRUE(deleted);
}

TEST_F(TreeItemFactoryTest, CombinedFilterNeedsTheItemFilterToIncludeExactly)
{
    const ModelItem& jazz = *forest[0]->GetChildren()[0]->GetChildren()[0];  // search texts: "blue note"
    const ModelItem& albums = *forest[0]->GetChildren()[0];                  // no search texts
    TextSearchFilter search;
    search.SetSearchText("blue");

    const std::tuple<S, const ModelItem*, S> cases[] = {
        {S::Included, &jazz, S::Included},
        {S::Included, &albums, S::IncludedIfAnyChild},
        {S::IncludedIfAnyChild, &jazz, S::Excluded},
        {S::Excluded, &jazz, S::Excluded},
    };
    for (const auto& [itemStatus, item, expected] : cases) {
        StatusFilter itemFilter({{AsNamed(*item).GetName(), itemStatus}});
        EXPECT_EQ(WZ::Folderable::Views::CombinedTreeItemFilter(itemFilter, search).GetStatus(*item), expected)
            << AsNamed(*item).GetName() << " with item status " << static_cast<int>(itemStatus);
    }

    // A search filter that excludes wins over an including item filter.
    struct Excluding : TextSearchFilter {
        Status GetStatus(const ModelItem&) const override { return Status::Excluded; }
    } excluding;
    StatusFilter includeAll;
    EXPECT_EQ(WZ::Folderable::Views::CombinedTreeItemFilter(includeAll, excluding).GetStatus(jazz), S::Excluded);
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

// Walks, the cycle check, the build and deletion keep their own stacks; a call per level would
// overflow the call stack.
TEST_F(TreeItemFactoryTest, AChainTwoHundredThousandDeepIsWalkedSearchedAndBuilt)
{
    constexpr int Depth = 200000;
    ModelItem* bottom = nullptr;
    forest = BuildChain(Depth, bottom);
    EXPECT_EQ(ModelItem::ToPtrArrayRecursive(forest).GetSize(), static_cast<NK::UIndex>(Depth));
    EXPECT_EQ(WZ::Folderable::FindModelItemById(forest, bottom->GetId()), bottom);
    {
        NK::AssertCapture asserts;
        bottom->AddChild(NK::Owner<ModelItem>(forest[0].Get()));
        EXPECT_EQ(asserts.GetExpressions().size(), 1u) << "the top of the chain is refused at its bottom";
    }
    StatusFilter filter;
    const auto tree = Create(&filter);
    int depth = 0;
    for (const TreeItem* item = tree.IsEmpty() ? nullptr : tree[0].Get(); item != nullptr;
         item = item->GetChildren().IsEmpty() ? nullptr : item->GetChildren()[0].Get())
        ++depth;
    EXPECT_EQ(depth, Depth);
}

}  // namespace
