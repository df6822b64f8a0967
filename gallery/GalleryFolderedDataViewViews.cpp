// One foldered data view over a document archive, shown in each of its three views in turn: a
// search typed and cleared, the up button and the path pop-up of the tree-and-list view used,
// and the state saved to a file and read back into a second data view.
#include "GalleryScene.hpp"

#include "NK/NKFileChannel.hpp"
#include "QM/QMButton.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMListBox.hpp"
#include "QM/QMPopUpControl.hpp"
#include "QM/QMSearchEdit.hpp"
#include "QM/QMSplitter.hpp"
#include "QM/QMTextRenderer.hpp"
#include "QM/QMTreeView.hpp"
#include "WZSources/ColumnModel/WZColumn.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVHierarchicalView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVLayouts.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVListBoxBaseView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVTreeAndListLayout.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVTreeAndListView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableHierarchicalTreeItem.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableHierarchicalView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableListBox.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableTreeView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataViewObserver.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataViewState.hpp"

#include <filesystem>
#include <string>

namespace {

using namespace WZ::Folderable;
using ViewMode = FolderedDataView::ViewMode;

class Doc : public ModelItem {
public:
    explicit Doc(std::string name) : id(NK::Guid::FromNumber(0x6A11, NK::UniString(name).GenerateHashValue())), name(std::move(name)) {}
    NK::Guid GetId() const override { return id; }
    NK::UniString Name() const { return NK::UniString(name); }

private:
    NK::Guid id;
    std::string name;
};

NK::UniString NameOf(const ModelItem& item) { return static_cast<const Doc&>(item).Name(); }

NK::Owner<ModelItem> D(const std::string& name, std::initializer_list<const char*> children = {})
{
    auto doc = NK::NewOwned<Doc>(name);
    for (const char* child : children)
        doc->AddChild(NK::NewOwned<Doc>(child));
    return doc;
}

NK::Array<NK::Owner<ModelItem>> Archive()
{
    NK::Array<NK::Owner<ModelItem>> forest;
    auto documents = D("Documents");
    documents->AddChild(D("Letters", {"Bank", "Insurance", "School"}));
    documents->AddChild(D("Receipts", {"Receipt 2024-01", "Receipt 2024-02"}));
    documents->AddChild(D("Manuals", {"Bicycle", "Washing Machine"}));
    forest.Push(std::move(documents));
    forest.Push(D("Photos", {"Birthday 2024", "Holiday 2023"}));
    forest.Push(D("Recipes", {"Lentil Soup", "Pancakes"}));
    return forest;
}

class TableRow : public HierarchicalTreeItem {
public:
    explicit TableRow(const ModelItem& m)
        : HierarchicalTreeItem(m, NameOf(m), {}, QM::Font::Plain, {}, {}, {})
    {
    }
};
struct TableRows : TreeItemFactory {
    NK::Owner<TreeItem> CreateItem(const ModelItem& m) override { return NK::NewOwned<TableRow>(m); }
};
struct Folders : TreeItemFactory {
    struct Only : Filter {
        Status GetStatus(const ModelItem& m) const override { return m.GetChildren().IsEmpty() ? Status::Excluded : Status::Included; }
    };
    Folders() { SetItemFilter(NK::Owner<Filter>(NK::NewOwned<Only>())); }
    NK::Owner<TreeItem> CreateItem(const ModelItem& m) override
    {
        return NK::NewOwned<TreeItem>(m, NameOf(m), NK::Optional<QM::Icon>(), QM::Font::Plain, NK::Optional<QM::Color>(),
                                      NK::Optional<QM::Color>(), NK::Optional<NK::UniString>());
    }
};
struct TreeSearch : TreeItemFactory::SearchFilter {
    NK::Array<NK::UniString> GetSearchTexts(const ModelItem& m) const override { return {NameOf(m)}; }
};
struct Row : ListBoxItem {
    explicit Row(const ModelItem& m) : ListBoxItem(m.GetId()), name(NameOf(m)) {}
    bool IsEqual(const WZ::Diffable& o) const override
    {
        auto* r = dynamic_cast<const Row*>(&o);
        return r != nullptr && r->name == name;
    }
    NK::UniString name;
};
struct Rows : ListItemFactory {
    Rows() { SetComparator([](const ListBoxItem* a, const ListBoxItem* b) { return static_cast<const Row*>(a)->name < static_cast<const Row*>(b)->name; }); }
    const ListBoxItem* CreateItem(const ModelItem& m) override { return new Row(m); }
};
struct ListSearch : ListItemFactory::SearchFilter {
    NK::Array<NK::UniString> GetSearchTexts(const ModelItem& m) const override { return {NameOf(m)}; }
};

struct Printer : FolderedDataViewObserver {
    Printer(FolderedDataView& dv, std::ostream& out) : FolderedDataViewObserver(dv), out(out) {}
    void SelectionChanged(const Selection& s) override
    {
        out << "  event: selection";
        for (const ModelItem* item : s.GetItems())
            out << " [" << NameOf(*item).ToUtf8() << "]";
        out << "\n";
    }
    std::ostream& out;
};

void Setup(FolderedDataView& dv)
{
    UntypedListBox& list = *dv.GetListBoxDataView();
    list.AddTextColumn(1, "Name", NK::NewOwned<WZ::ProportionalColumn>(1.0f, 100),
                       [](const ListBoxItem& r) { return static_cast<const Row&>(r).name; });
    list.SetupColumns();
    auto h = NK::NewOwned<Views::HierarchicalView>(NK::NewOwned<HierarchicalLayout>(dv), dv, NK::NewOwned<TableRows>());
    h->SetSearchFilter(NK::NewOwned<TreeSearch>());
    dv.RegisterView(ViewMode::Hierarchical, std::move(h));
    auto f = NK::NewOwned<Views::FlatListView>(NK::NewOwned<FlatListLayout>(dv), dv);
    f->SetListItemFactory(NK::NewOwned<Rows>());
    f->SetListItemSearchFilter(NK::NewOwned<ListSearch>());
    dv.RegisterView(ViewMode::FlatList, std::move(f));
    auto t = NK::NewOwned<Views::TreeAndListView>(NK::NewOwned<TreeAndListLayout>(dv), dv, NK::NewOwned<Folders>());
    t->SetListItemFactory(NK::NewOwned<Rows>());
    t->SetListItemSearchFilter(NK::NewOwned<ListSearch>());
    t->SetPopUpItemFactory(NK::NewOwned<Views::TreeAndListView::PopUpViewItemFactory>(t->GetTreeItemFactory()));
    dv.RegisterView(ViewMode::TreeAndList, std::move(t));
    dv.SetItems(Archive());
    dv.CreateDefaultState();
    dv.ShowCurrentView();
    dv.InitRect();
}

void Show(std::ostream& out, const QM::Dialog& dialog)
{
    for (const std::string& line : QM::TextRenderer::RenderPanel(dialog))
        out << "  " << line << "\n";
}

}  // namespace

WZ_GALLERY_SCENE("foldered-data-view-views", "One data view in its hierarchical, flat and tree-and-list views; search, up button, path pop-up, state file")
{
    QM::Dialog dialog {"Document Archive", 520, 360};
    FolderedDataView dataView {dialog, QM::Rect(10, 10, 510, 350)};
    Setup(dataView);
    Printer printer {dataView, out};

    Gallery::Step(out, "Hierarchical view: the first level open; the user opens Documents and picks Receipts");
    dataView.GetHierarchicalDataView()->SimulateUserExpand(NK::Guid::FromNumber(0x6A11, NK::UniString("Documents").GenerateHashValue()));
    dataView.GetHierarchicalDataView()->SimulateUserSelectNode(NK::Guid::FromNumber(0x6A11, NK::UniString("Receipts").GenerateHashValue()));
    Show(out, dialog);

    Gallery::Step(out, "The user types \"rec\" into the search field, then clears it");
    dataView.GetSearchField()->SimulateUserType("rec");
    Show(out, dialog);
    dataView.GetSearchField()->SimulateUserClear();
    Show(out, dialog);

    Gallery::Step(out, "Flat list view: every item in one sorted list, the same selection, no event");
    dataView.SetViewMode(ViewMode::FlatList);
    Show(out, dialog);

    Gallery::Step(out, "Tree-and-list view: the folder of the selection in the tree, its children in the list");
    dataView.SetViewMode(ViewMode::TreeAndList);
    Show(out, dialog);

    Gallery::Step(out, "The user picks Letters in the tree: the path pop-up shows Documents > Letters");
    QM::TreeView& tree = *dataView.GetTreeView();
    tree.SimulateUserSelectNode(dataView.GetTreeDataView()->GetNode(NK::Guid::FromNumber(0x6A11, NK::UniString("Letters").GenerateHashValue())));
    Show(out, dialog);

    Gallery::Step(out, "The user clicks the up button: Documents is chosen, the button is disabled at the top");
    dataView.GetUpButton()->SimulateUserClick();
    Show(out, dialog);

    Gallery::Step(out, "The user picks Receipts in the tree, then the top of the path in the pop-up");
    tree.SimulateUserSelectNode(dataView.GetTreeDataView()->GetNode(NK::Guid::FromNumber(0x6A11, NK::UniString("Receipts").GenerateHashValue())));
    dataView.GetPopUpControl()->SimulateUserSelect(1);
    Show(out, dialog);

    Gallery::Step(out, "The user drags the splitter 60 pixels right; the state is saved to a file");
    dataView.GetSplitter()->SimulateUserDrag(60);
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "wz-gallery-data-view.state";
    {
        NK::FileOChannel channel {NK::FileLocation(file)};
        out << "  write: " << dataView.WriteState(channel) << ", close: " << channel.Close() << "\n";
    }

    Gallery::Step(out, "A second data view reads the file: same view, same splitter");
    QM::Dialog second {"Second Browser", 520, 360};
    FolderedDataView other {second, QM::Rect(10, 10, 510, 350)};
    Setup(other);
    {
        NK::FileIChannel channel {NK::FileLocation(file)};
        out << "  read: " << other.ReadState(channel) << "\n";
    }
    std::filesystem::remove(file);
    Show(out, second);
}
