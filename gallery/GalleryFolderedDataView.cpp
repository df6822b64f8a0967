// Foldered data view: a building project's forest of views and layouts, searched through the
// tree item factory, and a burst of selection changes on a headless list box coalesced into one
// selection-changed event.
#include "GalleryScene.hpp"

#include "NK/NKUniString.hpp"
#include "QM/QMListBox.hpp"
#include "QM/QMPanel.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataViewObserver.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZTreeItemFactory.hpp"

#include <ostream>
#include <string>

namespace {

using WZ::Folderable::FolderedDataView;
using WZ::Folderable::ModelItem;
using WZ::Folderable::Selection;
using WZ::Folderable::TreeItem;
using WZ::Folderable::TreeItemFactory;

class ProjectItem : public ModelItem {
public:
    ProjectItem(NK::UInt64 number, std::string name, std::string kind)
        : id(NK::Guid::FromNumber(0x6A11, number)), name(std::move(name)), kind(std::move(kind))
    {
    }
    NK::Guid GetId() const override { return id; }
    const std::string& GetName() const { return name; }
    const std::string& GetKind() const { return kind; }

private:
    NK::Guid id;
    std::string name;
    std::string kind;
};

const ProjectItem& AsProject(const ModelItem& item)
{
    return static_cast<const ProjectItem&>(item);
}

// Builds the forest of a twelve-storey office project: view folders per storey, sections,
// elevations, a library of details and the layout book.
class ProjectBuilder {
public:
    ModelItem& Add(ModelItem* parent, const std::string& name, const std::string& kind)
    {
        auto item = NK::NewOwned<ProjectItem>(++number, name, kind);
        ModelItem& added = *item;
        if (parent != nullptr)
            parent->AddChild(std::move(item));
        else
            forest.Push(std::move(item));
        return added;
    }

    NK::Array<NK::Owner<ModelItem>> Build()
    {
        const char* storeyViews[] = {"Floor Plan", "Ceiling Plan", "Structural Plan", "Electrical Plan", "Furniture Plan"};
        const char* detailKinds[] = {"Wall Connection", "Window Sill", "Door Threshold", "Stair Landing",
                                     "Roof Parapet", "Curtain Wall Mullion", "Slab Edge", "Column Base"};
        ModelItem& views = Add(nullptr, "Views", "Folder");
        ModelItem& stories = Add(&views, "Stories", "Folder");
        for (int level = -2; level <= 12; ++level) {
            const std::string storey = "Level " + std::to_string(level);
            ModelItem& folder = Add(&stories, storey, "Folder");
            for (const char* view : storeyViews)
                for (const char* scale : {"1:50", "1:100", "1:200"})
                    Add(&folder, storey + " " + view + " " + scale, view);
        }
        ModelItem& sections = Add(&views, "Sections", "Folder");
        for (char c = 'A'; c <= 'Z'; ++c)
            for (int part = 1; part <= 6; ++part)
                Add(&sections, std::string("Section ") + c + "-" + c + " Part " + std::to_string(part), "Section");
        ModelItem& elevations = Add(&views, "Elevations", "Folder");
        for (const char* side : {"North", "East", "South", "West", "Courtyard North", "Courtyard South"})
            Add(&elevations, std::string(side) + " Elevation", "Elevation");
        ModelItem& details = Add(&views, "Details", "Folder");
        for (const char* kind : detailKinds) {
            ModelItem& group = Add(&details, kind, "Folder");
            for (int n = 1; n <= 150; ++n)
                Add(&group, std::string(kind) + " Detail " + std::to_string(n), "Detail");
        }
        ModelItem& layouts = Add(nullptr, "Layouts", "Folder");
        for (const char* discipline : {"Architecture", "Structure", "Mechanical", "Electrical"}) {
            ModelItem& book = Add(&layouts, discipline, "Folder");
            for (int sheet = 1; sheet <= 200; ++sheet)
                Add(&book, std::string(1, discipline[0]) + "-" + std::to_string(100 + sheet) + " " + discipline + " Sheet " +
                               std::to_string(sheet), "Layout");
        }
        return std::move(forest);
    }

private:
    NK::Array<NK::Owner<ModelItem>> forest;
    NK::UInt64 number = 0;
};

class ProjectTreeFactory : public TreeItemFactory {
public:
    NK::Owner<TreeItem> CreateItem(const ModelItem& item) override
    {
        const bool folder = AsProject(item).GetKind() == "Folder";
        return NK::NewOwned<TreeItem>(item, NK::UniString(AsProject(item).GetName()), NK::Optional<QM::Icon>(),
                                      folder ? QM::Font::Bold : QM::Font::Plain, NK::Optional<QM::Color>(),
                                      NK::Optional<QM::Color>(), NK::Optional<NK::UniString>());
    }
};

class NameAndKindSearch : public TreeItemFactory::SearchFilter {
public:
    NK::Array<NK::UniString> GetSearchTexts(const ModelItem& item) const override
    {
        if (AsProject(item).GetKind() == "Folder")
            return {};  // folders are shown for what they hold, not found themselves
        return {NK::UniString(AsProject(item).GetName()), NK::UniString(AsProject(item).GetKind())};
    }
};

void PrintTree(std::ostream& out, const NK::Array<NK::Owner<TreeItem>>& items, int depth, int& shown)
{
    for (const NK::Owner<TreeItem>& item : items) {
        out << std::string(2 * depth + 2, ' ') << (item->GetChildren().IsEmpty() ? "  " : "+ ")
            << item->GetDisplayName() << "\n";
        ++shown;
        PrintTree(out, item->GetChildren(), depth + 1, shown);
    }
}

// A view over a headless multi-selection list box showing the top-level items and their
// children. Like every control, the list box reports each step of a program's selection change.
class ListBoxView : public WZ::Folderable::Views::View, public QM::ListBoxObserver {
public:
    explicit ListBoxView(QM::ListBox& listBox) : listBox(listBox) {}
    ~ListBoxView() override { listBox.Detach(*this); }

    void EnableSelectionHandling() override { listBox.Attach(*this); }
    void DisableSelectionHandling() override { listBox.Detach(*this); }
    Selection GetSelection() const override
    {
        NK::Array<const ModelItem*> selected;
        for (short row : listBox.GetSelectedItems())
            selected.Push(rows[static_cast<NK::UIndex>(row - 1)]);
        return Selection(selected);
    }
    void SetSelection(const Selection& selection) override
    {
        listBox.DeselectItem(0);
        for (const ModelItem* item : selection.GetItems())
            if (NK::UIndex index = rows.FindFirst(item); index != NK::MaxUIndex)
                listBox.SelectItem(static_cast<short>(index + 1));
    }
    void Refresh() override
    {
        DisableSelectionHandling();
        listBox.DeleteAllItems();
        rows = ModelItem::ToPtrArrayRecursive(*GetCurrentItems());
        if (rows.GetSize() > 40)
            rows.SetSize(40);
        for (const ModelItem* item : rows)
            listBox.SetTabItemText(listBox.AppendItem(), 1, NK::UniString(AsProject(*item).GetName()));
    }
    void SelectionChanged(const QM::ListBoxSelectionEvent&) override
    {
        ++reports;
        SendSelectionChangedEvent();
    }

    const NK::Array<const ModelItem*>& GetRows() const { return rows; }
    int reports = 0;

private:
    QM::ListBox& listBox;
    NK::Array<const ModelItem*> rows;
};

class PrintingObserver : public WZ::Folderable::FolderedDataViewObserver {
public:
    PrintingObserver(FolderedDataView& dataView, std::ostream& out) : FolderedDataViewObserver(dataView), out(out) {}
    void SelectionChanged(const Selection& selection) override
    {
        ++events;
        out << "  event: selection changed to";
        for (const ModelItem* item : selection.GetItems())
            out << " [" << AsProject(*item).GetName() << "]";
        out << "\n";
    }
    int events = 0;

private:
    std::ostream& out;
};

}  // namespace

WZ_GALLERY_SCENE("foldered-data-view", "A project's views and layouts searched as a tree; a selection burst sends one event")
{
    ProjectBuilder builder;
    NK::Array<NK::Owner<ModelItem>> forest = builder.Build();
    const NK::Array<const ModelItem*> all = ModelItem::ToPtrArrayRecursive(forest);

    Gallery::Step(out, "The project forest");
    out << "  " << all.GetSize() << " model items in " << forest.GetSize() << " top-level folders\n";

    ProjectTreeFactory factory;
    NameAndKindSearch search;
    factory.SetItemFilter(&search);
    for (const char* text : {"level 3 electrical 1:50", "sill detail 14"}) {
        Gallery::Step(out, std::string("Search \"") + text + "\" (matches with the folders on their path, sorted)");
        search.SetSearchText(text);
        int shown = 0;
        PrintTree(out, factory.CreateTree(ModelItem::ToPtrArray(forest)), 0, shown);
        out << "  (" << shown << " rows)\n";
    }

    Gallery::Step(out, "A burst of selection changes under one guard");
    QM::Panel panel(400, 300);
    QM::ListBox listBox(panel, QM::Rect(10, 10, 390, 290), QM::ListBox::SelectionType::Multi);
    FolderedDataView dataView;
    auto ownedView = NK::NewOwned<ListBoxView>(listBox);
    ListBoxView& view = *ownedView;
    dataView.RegisterView(FolderedDataView::ViewMode::Initial, std::move(ownedView));
    PrintingObserver observer(dataView, out);
    dataView.SetItems(std::move(forest));
    const auto& rows = view.GetRows();
    out << "  the list box shows the first " << listBox.GetItemCount() << " items in pre-order\n";
    {
        auto guard = dataView.CreateSelectionGuard();
        dataView.SetSelection({rows[3], rows[4]});
        dataView.SetSelection({rows[5]});
        dataView.SetSelection({rows[7], rows[8], rows[9]});
        out << "  three SetSelection calls inside a client guard: the list box reported " << view.reports
            << " steps, " << observer.events << " events so far\n";
    }
    out << "  guard released: " << observer.events << " event\n";

    Gallery::Step(out, "A burst that ends where it started sends nothing");
    const int before = observer.events;
    {
        auto guard = dataView.CreateSelectionGuard();
        dataView.SetSelection({rows[1]});
        dataView.SetSelection({});
        dataView.SetSelection({rows[7], rows[8], rows[9]});
    }
    out << "  events sent: " << observer.events - before << "\n";

    Gallery::Step(out, "A user's click outside any guard notifies at once");
    listBox.SimulateUserClickRow(2);
}
