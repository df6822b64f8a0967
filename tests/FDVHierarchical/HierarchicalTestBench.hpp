// A test bench for the hierarchical view: a dialog holding the hierarchical table and a search
// field, offered to the view as its view resource; a row factory that names rows after the model
// items, a search filter over the items' names and a recorder of the view's selection events.
#pragma once

#include "FolderedDataView/FDVTestModel.hpp"

#include "QM/QMDialog.hpp"
#include "QM/QMSearchEdit.hpp"
#include "QM/QMTextRenderer.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVHierarchicalView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableHierarchicalView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZTreeItemFactory.hpp"

#include <map>
#include <string>
#include <vector>

namespace FDVHierarchicalTest {

using namespace FDVTest;
using WZ::Folderable::HierarchicalTableView;
using WZ::Folderable::HierarchicalTreeItem;
using WZ::Folderable::Selection;
using WZ::Folderable::TreeItem;
using WZ::Folderable::TreeItemFactory;
using WZ::Folderable::Views::HierarchicalView;
using WZ::Folderable::Views::View;
using NameList = std::vector<std::string>;

// A row with a "size" column: the name's length.
class NamedRow : public HierarchicalTreeItem {
public:
    NamedRow(const ModelItem& model, const std::string& name, const NK::Optional<NK::UniString>& toolTip = {})
        : HierarchicalTreeItem(model, NK::UniString(name), NK::Optional<QM::Icon>(), QM::Font::Plain,
                               NK::Optional<QM::Color>(), NK::Optional<QM::Color>(), toolTip)
    {
    }
    NK::UniString GetString(const NK::UniString& columnId) const override
    {
        if (columnId == NK::UniString("size"))
            return NK::UniString(std::to_string(GetDisplayName().GetLength()));
        return {};
    }
};

// Rows named after the items; a name can be given another display text (a changed row), and every
// row a tooltip.
class RowFactory : public TreeItemFactory {
public:
    NK::Owner<TreeItem> CreateItem(const ModelItem& item) override
    {
        const std::string& name = AsNamed(item).GetName();
        auto renamed = displayNames.find(name);
        return NK::NewOwned<NamedRow>(item, renamed != displayNames.end() ? renamed->second : name, toolTip);
    }
    std::map<std::string, std::string> displayNames;
    NK::Optional<NK::UniString> toolTip;
};

// Finds items by their name (and their own search texts, if any).
class NameSearchFilter : public TreeItemFactory::SearchFilter {
public:
    NK::Array<NK::UniString> GetSearchTexts(const ModelItem& item) const override
    {
        NK::Array<NK::UniString> texts {NK::UniString(AsNamed(item).GetName())};
        for (const std::string& text : AsNamed(item).GetSearchTexts())
            texts.Push(NK::UniString(text));
        return texts;
    }
};

// The controls the view borrows: one table and one search field on a dialog.
class TableResource : public WZ::Folderable::Views::ViewResource {
public:
    HierarchicalTableView* GetHierarchicalDataView() const override { return &table; }
    WZ::Folderable::TreeView* GetTreeDataView() const override { return nullptr; }
    WZ::Folderable::UntypedListBox* GetListBoxDataView() const override { return nullptr; }
    WZ::Folderable::PopUpView* GetPopUpView() const override { return nullptr; }
    QM::SearchEdit* GetSearchField() const override { return &searchField; }
    QM::ListBox* GetListBox() const override { return nullptr; }
    QM::Button* GetUpButton() const override { return nullptr; }
    QM::Rect GetRect() const override { return QM::Rect(0, 0, 400, 300); }

    QM::Dialog dialog {"Browser", 400, 300};
    mutable QM::SearchEdit searchField {dialog, QM::Rect(0, 0, 400, 20)};
    mutable HierarchicalTableView table {dialog, QM::Rect(0, 24, 400, 276)};
};

// Counts the view's selection reports and keeps the selection each one carried.
class SelectionRecorder : public View::Delegate {
public:
    void ViewSelectionChanged() override { reported.push_back(FDVTest::Names(view->GetSelection().GetItems())); }

    const View* view = nullptr;  // the view whose reports these are
    std::vector<std::string> reported;
};

// A recipe collection: Recipes(Vegetables(Peppers, Spinach(Dumplings)), Stews), Nibbles(Muffins)
inline std::vector<Node> SampleForest()
{
    return {Node("Recipes", {Node("Vegetables", {Node("Peppers"), Node("Spinach", {Node("Dumplings")})}), Node("Stews")}),
            Node("Nibbles", {Node("Muffins")})};
}

// The model item of the forest with the name; fails the test when there is none.
inline const ModelItem* Find(const NK::Array<NK::Owner<ModelItem>>& forest, const std::string& name)
{
    const ModelItem* found = WZ::Folderable::FindModelItemById(forest, IdOf(name));
    if (found == nullptr)
        throw std::runtime_error("no item " + name);
    return found;
}

inline std::string Render(const QM::Item& item)
{
    return QM::TextRenderer::Join(QM::TextRenderer::RenderItem(item));
}

}  // namespace FDVHierarchicalTest
