// Foldered data view: a music library's forest of albums, tracks and playlists, searched through the
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

class LibraryItem : public ModelItem {
public:
    LibraryItem(NK::UInt64 number, std::string name, std::string kind)
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

const LibraryItem& AsLibrary(const ModelItem& item)
{
    return static_cast<const LibraryItem&>(item);
}

// Builds the forest of a household's music library: a folder per artist with each album in
// three file formats, podcasts, radio stations, tracks by genre, and playlists.
class LibraryBuilder {
public:
    ModelItem& Add(ModelItem* parent, const std::string& name, const std::string& kind)
    {
        auto item = NK::NewOwned<LibraryItem>(++number, name, kind);
        ModelItem& added = *item;
        if (parent != nullptr)
            parent->AddChild(std::move(item));
        else
            forest.Push(std::move(item));
        return added;
    }

    NK::Array<NK::Owner<ModelItem>> Build()
    {
        const char* artists[] = {"Amber Lane", "Blue Harbour", "Cedar Choir", "Delta Strings", "Echo Park",
                                 "Fern Hollow", "Golden Hour", "Harbour Lights", "Indigo Trio", "Juniper Band",
                                 "Kite Season", "Lantern Folk", "Maple Street", "North Wind", "Olive Grove"};
        const char* albums[] = {"Studio Album", "Live Album", "Acoustic Sessions", "Greatest Hits", "Remixes"};
        const char* genres[] = {"Blues", "Classical", "Country", "Folk", "Jazz", "Reggae", "Rock", "Soul"};
        ModelItem& music = Add(nullptr, "Music", "Folder");
        ModelItem& byArtist = Add(&music, "Artists", "Folder");
        for (const char* artist : artists) {
            ModelItem& folder = Add(&byArtist, artist, "Folder");
            for (const char* album : albums)
                for (const char* format : {"FLAC", "MP3", "AAC"})
                    Add(&folder, std::string(artist) + " " + album + " " + format, album);
        }
        ModelItem& podcasts = Add(&music, "Podcasts", "Folder");
        for (char c = 'A'; c <= 'Z'; ++c)
            for (int episode = 1; episode <= 6; ++episode)
                Add(&podcasts, std::string("Podcast ") + c + " Episode " + std::to_string(episode), "Episode");
        ModelItem& stations = Add(&music, "Radio Stations", "Folder");
        for (const char* station : {"Morning Jazz", "City Pop", "Classic Hits", "Folk Roots", "Night Piano", "Sunday Soul"})
            Add(&stations, std::string(station) + " Radio", "Station");
        ModelItem& byGenre = Add(&music, "Genres", "Folder");
        for (const char* genre : genres) {
            ModelItem& group = Add(&byGenre, genre, "Folder");
            for (int n = 1; n <= 150; ++n)
                Add(&group, std::string(genre) + " Track " + std::to_string(n), "Track");
        }
        ModelItem& playlists = Add(nullptr, "Playlists", "Folder");
        for (const char* occasion : {"Breakfast", "Workout", "Dinner", "Travel"}) {
            ModelItem& list = Add(&playlists, occasion, "Folder");
            for (int song = 1; song <= 200; ++song)
                Add(&list, std::string(1, occasion[0]) + "-" + std::to_string(100 + song) + " " + occasion + " Song " +
                               std::to_string(song), "Song");
        }
        return std::move(forest);
    }

private:
    NK::Array<NK::Owner<ModelItem>> forest;
    NK::UInt64 number = 0;
};

class LibraryTreeFactory : public TreeItemFactory {
public:
    NK::Owner<TreeItem> CreateItem(const ModelItem& item) override
    {
        const bool folder = AsLibrary(item).GetKind() == "Folder";
        return NK::NewOwned<TreeItem>(item, NK::UniString(AsLibrary(item).GetName()), NK::Optional<QM::Icon>(),
                                      folder ? QM::Font::Bold : QM::Font::Plain, NK::Optional<QM::Color>(),
                                      NK::Optional<QM::Color>(), NK::Optional<NK::UniString>());
    }
};

class NameAndKindSearch : public TreeItemFactory::SearchFilter {
public:
    NK::Array<NK::UniString> GetSearchTexts(const ModelItem& item) const override
    {
        if (AsLibrary(item).GetKind() == "Folder")
            return {};  // folders are shown for what they hold, not found themselves
        return {NK::UniString(AsLibrary(item).GetName()), NK::UniString(AsLibrary(item).GetKind())};
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
            listBox.SetTabItemText(listBox.AppendItem(), 1, NK::UniString(AsLibrary(*item).GetName()));
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
            out << " [" << AsLibrary(*item).GetName() << "]";
        out << "\n";
    }
    int events = 0;

private:
    std::ostream& out;
};

}  // namespace

WZ_GALLERY_SCENE("foldered-data-view", "A music library searched as a tree; a selection burst sends one event")
{
    LibraryBuilder builder;
    NK::Array<NK::Owner<ModelItem>> forest = builder.Build();
    const NK::Array<const ModelItem*> all = ModelItem::ToPtrArrayRecursive(forest);

    Gallery::Step(out, "The music library");
    out << "  " << all.GetSize() << " model items in " << forest.GetSize() << " top-level folders\n";

    LibraryTreeFactory factory;
    NameAndKindSearch search;
    factory.SetItemFilter(&search);
    for (const char* text : {"harbour lights live flac", "jazz track 14"}) {
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
