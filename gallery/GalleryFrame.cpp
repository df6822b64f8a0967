// The library frame at work: a dialog whose list box and tree view carry attached records,
// texts from the library's resources, and the operation journal of each control.
#include "GalleryScene.hpp"

#include "NK/NKGuid.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMListBox.hpp"
#include "QM/QMTextRenderer.hpp"
#include "QM/QMTreeView.hpp"
#include "WZSources/WZAttachedRecord.hpp"
#include "WZSources/WZResources.hpp"

namespace {

struct DocumentRecord : NK::Object {
    DocumentRecord(NK::Guid id, NK::UniString name) : id(id), name(std::move(name)) {}
    NK::Guid id;
    NK::UniString name;
};

struct DocumentRow {
    const char* name;
    const char* genre;
    const char* modified;
};

void FillRecentDocuments(QM::ListBox& list)
{
    const DocumentRow rows[] = {{"Lentil Soup", "Recipe", "today 09:12"},
                            {"Bank Statement March", "Letter", "today 08:47"},
                            {"Bicycle Manual", "Manual", "yesterday"},
                            {"Holiday Photos 2023", "Album", "Monday"}};
    list.SetTabFieldCount(3);
    NK::UInt64 number = 1;
    for (const DocumentRow& row : rows) {
        short r = list.InsertItem(QM::ListBox::LastPosition);
        list.SetTabItemText(r, 1, row.name);
        list.SetTabItemText(r, 2, row.genre);
        list.SetTabItemText(r, 3, row.modified);
        WZ::AttachRecord<DocumentRecord>(list, r, NK::Guid::FromNumber(0xA11, number++), row.name);
        if (r == 2)
            list.InsertSeparator(QM::ListBox::LastPosition);
    }
}

void FillArchiveTree(QM::TreeView& tree)
{
    struct Folder {
        const char* name;
        std::vector<const char*> children;
    };
    const Folder folders[] = {{"Letters", {"Bank", "Insurance", "School"}},
                              {"Receipts", {"Receipt 2024-01", "Receipt 2024-02"}},
                              {"Recipes", {"Lentil Soup", "Pancakes"}}};
    NK::UInt64 number = 1;
    for (const Folder& folder : folders) {
        int node = tree.AppendItem(0);
        tree.SetItemText(node, folder.name);
        tree.SetItemNormalIcon(node, WZ::GetResourceIcon(WZ::IconIds::ClosedFolder));
        WZ::AttachRecord<DocumentRecord>(tree, node, NK::Guid::FromNumber(0xF0, number++), folder.name);
        for (const char* child : folder.children) {
            int leaf = tree.AppendItem(node);
            tree.SetItemText(leaf, child);
            WZ::AttachRecord<DocumentRecord>(tree, leaf, NK::Guid::FromNumber(0xF1, number++), child);
        }
    }
}

}  // namespace

WZ_GALLERY_SCENE("frame", "a dialog's list box and tree view filled through the library frame")
{
    QM::Dialog dialog("Open Document", 480, 320);
    QM::ListBox recent(dialog, QM::Rect(10, 10, 470, 120));
    QM::TreeView archive(dialog, QM::Rect(10, 130, 470, 310));
    recent.SetText(WZ::GetResourceCommonString(WZ::CommonStringIds::Name));
    archive.SetText(WZ::GetResourceCommonString(WZ::CommonStringIds::AllItems));

    Gallery::Step(out, "filled: recent documents with attached records, the archive's folders");
    FillRecentDocuments(recent);
    FillArchiveTree(archive);
    archive.ExpandItem(archive.GetItem(0, QM::TreeView::FirstChild));
    recent.SelectItem(1);
    out << QM::TextRenderer::Join(QM::TextRenderer::RenderPanel(dialog));

    Gallery::Step(out, "records read back by position");
    for (int index = 1; index <= recent.GetItemCount(); ++index) {
        const auto row = static_cast<short>(index);
        if (recent.IsSeparator(row))
            continue;
        auto record = WZ::GetAttachedRecord<DocumentRecord>(recent, row);
        out << "row " << row << ": " << record->name << " " << record->id.ToString() << "\n";
    }
    try {
        WZ::GetAttachedRecord<DocumentRecord>(recent, short(3));
    } catch (const NK::NullReferenceException& e) {
        out << "row 3 (separator): " << e.GetMessage() << "\n";
    }

    Gallery::Step(out, "operation journals");
    out << "list box: " << recent.GetJournal().ToString() << "\n";
    out << "tree view: " << archive.GetJournal().ToString() << "\n";
    out << "\"" << WZ::GetResourceCommonFixString(WZ::CommonFixStringIds::Or) << "\" joins search alternatives\n";
}
