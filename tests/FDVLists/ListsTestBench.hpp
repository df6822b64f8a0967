// A test bench for the list-based views: a dialog holding a multi-selection list box, a folder
// tree, the pop-up of parent folders, an up button and a search field, offered to the views as
// their view resource; row and tree factories that name rows after the model items, a search
// filter over the names, and a recorder of the views' selection events.
#pragma once

#include "FolderedDataView/FDVTestModel.hpp"

#include "QM/QMButton.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMListBox.hpp"
#include "QM/QMPopUpControl.hpp"
#include "QM/QMSearchEdit.hpp"
#include "QM/QMTreeView.hpp"
#include "WZSources/ColumnModel/WZColumn.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVListBoxBaseView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVTreeAndListView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableListBox.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderablePopUpView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableTreeView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZTreeItemFactory.hpp"

#include <stdexcept>
#include <string>
#include <vector>

namespace FDVListsTest {

using namespace FDVTest;
using WZ::Folderable::ListBoxItem;
using WZ::Folderable::ListItemFactory;
using WZ::Folderable::Selection;
using WZ::Folderable::TreeItem;
using WZ::Folderable::TreeItemFactory;
using WZ::Folderable::UntypedListBox;
using WZ::Folderable::Views::FlatListView;
using WZ::Folderable::Views::ListBoxBaseView;
using WZ::Folderable::Views::TreeAndListView;
using WZ::Folderable::Views::View;

class NamedRow : public ListBoxItem {
public:
    NamedRow(const ModelItem& model, std::string name) : ListBoxItem(model.GetId()), name(std::move(name)) {}
    bool IsEqual(const WZ::Diffable& other) const override
    {
        auto* row = dynamic_cast<const NamedRow*>(&other);
        return row != nullptr && row->name == name;
    }
    std::string name;
};

// Rows named after the items, sorted by name.
class RowFactory : public ListItemFactory {
public:
    RowFactory()
    {
        SetComparator([](const ListBoxItem* a, const ListBoxItem* b) {
            return static_cast<const NamedRow*>(a)->name < static_cast<const NamedRow*>(b)->name;
        });
    }
    const ListBoxItem* CreateItem(const ModelItem& item) override { return new NamedRow(item, AsNamed(item).GetName()); }
};

// Finds items by their own search texts only: an item without them is never found.
class TextSearchFilter : public ListItemFactory::SearchFilter {
public:
    NK::Array<NK::UniString> GetSearchTexts(const ModelItem& item) const override
    {
        NK::Array<NK::UniString> texts;
        for (const std::string& text : AsNamed(item).GetSearchTexts())
            texts.Push(NK::UniString(text));
        return texts;
    }
};

// Tree nodes for the folders (items with children), named after them.
class FolderFactory : public TreeItemFactory {
public:
    class FoldersOnly : public Filter {
    public:
        Status GetStatus(const ModelItem& item) const override
        {
            return item.GetChildren().IsEmpty() ? Status::Excluded : Status::Included;
        }
    };
    FolderFactory() { SetItemFilter(NK::Owner<Filter>(NK::NewOwned<FoldersOnly>())); }
    NK::Owner<TreeItem> CreateItem(const ModelItem& item) override
    {
        return NK::NewOwned<TreeItem>(item, NK::UniString(AsNamed(item).GetName()), NK::Optional<QM::Icon>(),
                                      QM::Font::Plain, NK::Optional<QM::Color>(), NK::Optional<QM::Color>(),
                                      NK::Optional<NK::UniString>());
    }
};

// The controls the views borrow, on one dialog.
class ListsResource : public WZ::Folderable::Views::ViewResource {
public:
    ListsResource()
    {
        list.AddTextColumn(1, "Name", NK::NewOwned<WZ::ProportionalColumn>(1.0f, 100),
                           [](const ListBoxItem& row) { return NK::UniString(static_cast<const NamedRow&>(row).name); });
        list.AddTextColumn(2, "Letters", NK::NewOwned<WZ::FixedColumn>(60.0f), [](const ListBoxItem& row) {
            return NK::UniString(std::to_string(static_cast<const NamedRow&>(row).name.size()));
        });
        list.SetupColumns();
    }
    WZ::Folderable::HierarchicalTableView* GetHierarchicalDataView() const override { return nullptr; }
    WZ::Folderable::TreeView* GetTreeDataView() const override { return &tree; }
    UntypedListBox* GetListBoxDataView() const override { return &list; }
    WZ::Folderable::PopUpView* GetPopUpView() const override { return &popUp; }
    QM::SearchEdit* GetSearchField() const override { return &searchField; }
    QM::ListBox* GetListBox() const override { return &listBox; }
    QM::Button* GetUpButton() const override { return &upButton; }
    QM::Rect GetRect() const override { return QM::Rect(0, 0, 500, 300); }

    QM::Dialog dialog {"Browser", 500, 300};
    mutable QM::SearchEdit searchField {dialog, QM::Rect(0, 0, 500, 20)};
    mutable QM::TreeView treeView {dialog, QM::Rect(0, 24, 200, 276)};
    mutable QM::PopUpControl popUpControl {dialog, QM::Rect(204, 24, 250, 20)};
    mutable QM::Button upButton {dialog, QM::Rect(458, 24, 42, 20), "Up"};
    mutable QM::ListBox listBox {dialog, QM::Rect(204, 48, 296, 252), QM::ListBox::SelectionType::Multi};
    mutable WZ::Folderable::TreeView tree {treeView};
    mutable WZ::Folderable::PopUpView popUp {popUpControl};
    mutable UntypedListBox list {listBox};
};

// Counts the view's selection reports and keeps the selection each one carried.
class SelectionRecorder : public View::Delegate {
public:
    void ViewSelectionChanged() override { reported.push_back(Names(view->GetSelection().GetItems())); }

    const View* view = nullptr;
    std::vector<std::string> reported;
};

// A recipe collection: Recipes(Vegetables(Peppers, Spinach(Dumplings)), Stews), Nibbles(Muffins),
// each item but the folders Recipes, Vegetables and Nibbles with its own search texts.
inline std::vector<Node> SampleForest()
{
    return {Node("Recipes", {Node("Vegetables", {Node("Peppers", {}, {"red pepper"}),
                                                 Node("Spinach", {Node("Dumplings", {}, {"dumpling"})}, {"spinach seeds"})}),
                             Node("Stews", {}, {"stews"})}),
            Node("Nibbles", {Node("Muffins", {}, {"muffins"})})};
}

inline const ModelItem* Find(const NK::Array<NK::Owner<ModelItem>>& forest, const std::string& name)
{
    const ModelItem* found = WZ::Folderable::FindModelItemById(forest, IdOf(name));
    if (found == nullptr)
        throw std::runtime_error("no item " + name);
    return found;
}

// The names of the list's rows, in row order.
inline std::string Rows(const UntypedListBox& list)
{
    return Names(list.GetModelItems());
}

// The row of the named item; fails when it has none.
inline short RowOf(const UntypedListBox& list, const std::string& name)
{
    const short row = list.GetRow(IdOf(name));
    if (row < 1)
        throw std::runtime_error("no row for " + name);
    return row;
}

inline std::string PopUpEntries(const QM::PopUpControl& popUp)
{
    std::string text;
    for (short entry = 1; entry <= popUp.GetItemCount(); ++entry)
        text += (text.empty() ? "" : " > ") + popUp.GetItemText(entry).ToUtf8();
    return text;
}

}  // namespace FDVListsTest
