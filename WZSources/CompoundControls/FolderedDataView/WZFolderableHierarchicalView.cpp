#define NK_SOURCE_PATH "WZSources\\CompoundControls\\FolderedDataView\\WZFolderableHierarchicalView"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableHierarchicalView.hpp"

#include "NK/NKAssert.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableModelItem.hpp"
#include "WZSources/WZLoggedAssert.hpp"

#include <utility>
#include <vector>

namespace WZ::Folderable {

namespace {

constexpr const char* LogFile = "WZFolderableHierarchicalView";

NK::UIndex CountRows(const NK::Array<NK::Owner<HierarchicalTreeItem>>& topLevel)
{
    NK::UIndex count = 0;
    std::vector<const TreeItem*> pending;
    for (const NK::Owner<HierarchicalTreeItem>& item : topLevel)
        pending.push_back(item.Get());
    while (!pending.empty()) {
        const TreeItem* row = pending.back();
        pending.pop_back();
        ++count;
        for (const NK::Owner<TreeItem>& child : row->GetChildren())
            pending.push_back(child.Get());
    }
    return count;
}

}  // namespace

// ---- data provider -----------------------------------------------------------------------

void HierarchicalTableView::DataProvider::ItemIndex::Rebuild(const NK::Array<NK::Owner<HierarchicalTreeItem>>& topLevel)
{
    const NK::UIndex count = CountRows(topLevel);
    entries.clear();
    entries.reserve(count);
    std::size_t slotCount = 16;
    while (slotCount < 2 * static_cast<std::size_t>(count))
        slotCount *= 2;
    slots.assign(slotCount, 0);
    levels.Clear();
    // Pre-order with a stack of its own, so that a forest of any depth is indexed.
    struct Pending {
        HierarchicalTreeItem* item;
        NK::Guid parentId;
        NK::Int32 depth;
    };
    std::vector<Pending> pending;
    for (NK::UIndex i = topLevel.GetSize(); i-- > 0;)
        pending.push_back({topLevel[i].Get(), HierarchicalItemId::virtualRootId, 0});
    while (!pending.empty()) {
        const Pending next = pending.back();
        pending.pop_back();
        Add(*next.item, next.parentId, next.depth);
        // The children are hierarchical rows too (the view checks the forest before it gets here).
        const NK::Array<NK::Owner<TreeItem>>& children = next.item->TreeItem::GetChildren();
        for (NK::UIndex i = children.GetSize(); i-- > 0;)
            pending.push_back({static_cast<HierarchicalTreeItem*>(children[i].Get()), next.item->GetId(), next.depth + 1});
    }
}

std::size_t HierarchicalTableView::DataProvider::ItemIndex::SlotOf(const NK::Guid& id) const
{
    // The table is never more than half full, so the probe ends at an empty slot or at the id.
    const std::size_t mask = slots.size() - 1;
    for (std::size_t slot = id.GenerateHashValue() & mask;; slot = (slot + 1) & mask) {
        if (slots[slot] == 0 || entries[slots[slot] - 1].id == id)
            return slot;
    }
}

const HierarchicalTableView::DataProvider::ItemIndex::Entry*
HierarchicalTableView::DataProvider::ItemIndex::Find(const NK::Guid& id) const
{
    if (slots.empty())
        return nullptr;
    const NK::UInt32 number = slots[SlotOf(id)];
    return number == 0 ? nullptr : &entries[number - 1];
}

void HierarchicalTableView::DataProvider::ItemIndex::Add(HierarchicalTreeItem& item, const NK::Guid& parentId, NK::Int32 depth)
{
    const NK::Guid id = item.GetId();
    const std::size_t slot = SlotOf(id);
    if (slots[slot] != 0) {
        ++entries[slots[slot] - 1].occurrences;
    } else {
        entries.push_back(Entry {id, &item, parentId, depth, 1});
        slots[slot] = static_cast<NK::UInt32>(entries.size());
        while (levels.GetSize() <= static_cast<NK::UIndex>(depth))
            levels.Push({});
        levels[static_cast<NK::UIndex>(depth)].Push(id);
    }
}

HierarchicalTableView::DataProvider::DataProvider() = default;

HierarchicalTableView::DataProvider::~DataProvider() = default;

HierarchicalItemId HierarchicalTableView::DataProvider::GetVirtualRoot() const
{
    return HierarchicalItemId();
}

NK::Array<HierarchicalItemId> HierarchicalTableView::DataProvider::GetChildren(const HierarchicalItemId& parent) const
{
    NK::Array<HierarchicalItemId> children;
    if (parent.item == nullptr) {
        children.SetCapacity(items.GetSize());
        for (const NK::Owner<HierarchicalTreeItem>& item : items)
            children.Push(HierarchicalItemId(*item));
        return children;
    }
    const NK::Array<NK::Owner<TreeItem>>& rows = parent.item->TreeItem::GetChildren();
    children.SetCapacity(rows.GetSize());
    for (const NK::Owner<TreeItem>& row : rows)
        children.Push(HierarchicalItemId(static_cast<HierarchicalTreeItem&>(*row)));
    return children;
}

NK::Array<NK::Owner<HierarchicalTreeItem>>
HierarchicalTableView::DataProvider::ReplaceItems(NK::Array<NK::Owner<HierarchicalTreeItem>> newItems)
{
    std::swap(items, newItems);
    index.Rebuild(items);
    return newItems;
}

HierarchicalTableView::GuidSet HierarchicalTableView::DataProvider::GetAllAncestorsOfItems(const NK::Array<NK::Guid>& ids) const
{
    GuidSet ancestors;
    for (const NK::Guid& id : ids) {
        const ItemIndex::Entry* entry = index.Find(id);
        while (entry != nullptr && entry->parentId != HierarchicalItemId::virtualRootId) {
            // A path already walked from another id goes on to the top the same way.
            if (!ancestors.Add(entry->parentId))
                break;
            entry = index.Find(entry->parentId);
        }
    }
    return ancestors;
}

// ---- delegate ----------------------------------------------------------------------------

HierarchicalTableView::UserDelegate::~UserDelegate() = default;

HierarchicalTableView::Delegate::Delegate(const HierarchicalTableView& table) : table(table) {}

HierarchicalTableView::Delegate::~Delegate() = default;

bool HierarchicalTableView::Delegate::IsTreeColumn(const NK::UniString& columnId) const
{
    for (const QM::TableView::Column& column : table.GetColumns()) {
        if (column.visible)
            return column.id == columnId;
    }
    return true;  // a table without shown columns has only the tree column
}

NK::UniString HierarchicalTableView::Delegate::GetCellText(const HierarchicalItemId& node, const NK::UniString& columnId) const
{
    if (node.item == nullptr)
        return {};
    NK::UniString text = node.item->GetString(columnId);
    if (text.IsEmpty() && IsTreeColumn(columnId))
        return node.item->GetDisplayName();
    return text;
}

NK::Array<QM::Icon> HierarchicalTableView::Delegate::GetCellIcons(const HierarchicalItemId& node,
                                                                 const NK::UniString& columnId) const
{
    NK::Array<QM::Icon> icons;
    if (node.item == nullptr)
        return icons;
    for (const QM::Icon& icon : node.item->GetIcons(columnId))
        icons.Push(icon);
    if (icons.IsEmpty() && node.item->HasIcon() && IsTreeColumn(columnId))
        icons.Push(*node.item->GetIcon());
    return icons;
}

NK::UniString HierarchicalTableView::Delegate::GetTooltipText(const HierarchicalItemId& node) const
{
    return node.item != nullptr ? node.item->GetTooltipText() : NK::UniString();
}

QM::Font::Style HierarchicalTableView::Delegate::GetFontStyle(const HierarchicalItemId& node) const
{
    if (node.item == nullptr || node.item->GetFontStyle() == HierarchicalTreeItem::NoFontStyle)
        return QM::Font::Plain;
    return node.item->GetFontStyle();
}

std::optional<QM::Color> HierarchicalTableView::Delegate::GetBackgroundColor(const HierarchicalItemId& node,
                                                                            const NK::UniString& columnId) const
{
    if (node.item == nullptr)
        return std::nullopt;
    return node.item->GetBackgroundColor(columnId);
}

void HierarchicalTableView::Delegate::SelectionChanged(QM::Origin)
{
    if (userDelegate != nullptr)
        userDelegate->SelectionChanged();
}

// ---- restorers ---------------------------------------------------------------------------

HierarchicalTableView::ExpandRestorer::ExpandRestorer(HierarchicalTableView& table, GuidSet expandedIds)
    : table(table), expandedIds(std::move(expandedIds))
{
}

void HierarchicalTableView::ExpandRestorer::Restore() const
{
    table.RestoreExpandedItemsByIds(expandedIds);
}

HierarchicalTableView::SelectionRestorer::SelectionRestorer(HierarchicalTableView& table, NK::Array<NK::Guid> selectedIds,
                                                            GuidSet ancestorIds)
    : table(table), selectedIds(std::move(selectedIds)), ancestorIds(std::move(ancestorIds))
{
}

void HierarchicalTableView::SelectionRestorer::Restore() const
{
    if (selectedIds.IsEmpty())
        return;
    table.SelectItems(selectedIds, ancestorIds);
}

// ---- the table ---------------------------------------------------------------------------

HierarchicalTableView::HierarchicalTableView(const QM::Panel& panel, const QM::Rect& rect)
    : HierarchicalTableViewBase(panel, rect, SelectionType::Multi),
      dataProvider(NK::NewOwned<DataProvider>()),
      tableDelegate(NK::NewOwned<Delegate>(*this))
{
    SetDataProvider(dataProvider.Get());
    HierarchicalTableViewBase::SetDelegate(tableDelegate.Get());
}

HierarchicalTableView::~HierarchicalTableView()
{
    // The toolkit's part outlives this one; it must not call into the parts destroyed here.
    HierarchicalTableViewBase::SetDelegate(nullptr);
    SetDataProvider(nullptr);
}

HierarchicalTableView::UpdateResult HierarchicalTableView::SetItems(NK::Array<NK::Owner<HierarchicalTreeItem>> newItems)
{
    GuidSet expanded = GetExpandedItemIds();
    NK::Array<NK::Guid> selectedIds;
    for (const HierarchicalItemId& node : GetSelectedNodes())
        selectedIds.Push(node.id);
    GuidSet ancestorIds = dataProvider->GetAllAncestorsOfItems(selectedIds);
    UpdateResult result {NK::NewOwned<ExpandRestorer>(*this, std::move(expanded)),
                         NK::NewOwned<SelectionRestorer>(*this, std::move(selectedIds), std::move(ancestorIds))};

    ClearSelection();
    // The old rows are compared with the new ones during the reload, so they live until it ends.
    NK::Array<NK::Owner<HierarchicalTreeItem>> oldItems = dataProvider->ReplaceItems(std::move(newItems));
    Reload();
    return result;
}

HierarchicalTreeItem* HierarchicalTableView::FindNode(const NK::Guid& id) const
{
    const DataProvider::ItemIndex::Entry* entry = dataProvider->GetItemIndex().Find(id);
    if (entry == nullptr)
        return nullptr;
    // A second row with the id means the search met a match while it already had one.
    if (!NK_ASSERT_TEXT(entry->occurrences == 1, "result == nullptr"))
        LogAssertError(LogFile, __LINE__);
    return entry->item;
}

HierarchicalTableView::GuidSet HierarchicalTableView::GetExpandedItemIds() const
{
    GuidSet ids;
    for (const HierarchicalItemId& node : GetExpandedNodes())
        ids.Add(node.id);
    return ids;
}

void HierarchicalTableView::RestoreExpandedItemsByIds(const GuidSet& ids)
{
    CollapseAllNodes();
    if (ids.IsEmpty())
        return;
    NK::Array<NK::Guid> idArray;
    idArray.SetCapacity(ids.GetSize());
    for (const NK::Guid& id : ids)
        idArray.Push(id);
    GuidSet widened = dataProvider->GetAllAncestorsOfItems(idArray);
    for (const NK::Guid& id : ids)
        widened.Add(id);
    // Top down, so that each row opens under an already open parent.
    for (const NK::Array<NK::Guid>& level : dataProvider->GetItemIndex().GetLevels()) {
        for (const NK::Guid& id : level) {
            if (widened.Contains(id) && ContainsNode(id))
                ExpandNode(id);
        }
    }
}

void HierarchicalTableView::ExpandItems(const GuidSet& ids)
{
    for (const NK::Guid& id : ids)
        ExpandItem(id);
}

void HierarchicalTableView::ExpandItem(const NK::Guid& id)
{
    if (FindNode(id) != nullptr && ContainsNode(id) && !IsNodeExpanded(id))
        ExpandNode(id);
}

void HierarchicalTableView::CollapseItem(const NK::Guid& id)
{
    if (FindNode(id) != nullptr && IsNodeExpanded(id))
        CollapseNode(id);
}

void HierarchicalTableView::ToggleOpenness(const NK::Guid& id)
{
    if (FindNode(id) == nullptr || !ContainsNode(id))
        return;
    if (IsNodeExpanded(id))
        CollapseNode(id);
    else
        ExpandNode(id);
}

bool HierarchicalTableView::IsExpandedItem(const NK::Guid& id) const
{
    const DataProvider::ItemIndex::Entry* entry = dataProvider->GetItemIndex().Find(id);
    if (entry == nullptr)
        return false;
    // The lookup stops at the first row; meeting a second one with the id is reported.
    if (!NK_ASSERT_TEXT(entry->occurrences == 1, "!nodeFound"))
        LogAssertError(LogFile, __LINE__);
    return IsNodeExpanded(id);
}

void HierarchicalTableView::SelectItems(const NK::Array<NK::Guid>& ids, const GuidSet& ancestorIds)
{
    ClearSelection();
    if (ids.IsEmpty())
        return;
    NK::Array<NK::Guid> rows;
    for (const NK::Guid& id : ids) {
        if (FindNode(id) != nullptr && ContainsNode(id))
            rows.Push(id);
    }
    if (rows.IsEmpty())
        return;
    ExpandItems(ancestorIds);
    if (rows.GetSize() == 1) {
        SelectNode(rows[0]);
        return;
    }
    SelectNodes(rows);
    const NK::Array<HierarchicalItemId> selected = GetSelectedNodes();
    if (!selected.IsEmpty())
        HierarchicalTableViewBase::ScrollToNode(selected[0].id);
}

NK::Array<const ModelItem*> HierarchicalTableView::GetSelectedModelItems() const
{
    NK::Array<const ModelItem*> models;
    for (const HierarchicalItemId& node : GetSelectedNodes()) {
        if (node.item != nullptr)
            models.Push(&node.item->GetModel());
    }
    return models;
}

const ModelItem* HierarchicalTableView::GetFirstNonSelectedItemAfterSelection() const
{
    const NK::Array<HierarchicalItemId> displayed = GetDisplayedNodes();
    NK::UIndex first = NK::MaxUIndex;
    NK::UIndex last = NK::MaxUIndex;
    for (NK::UIndex i = 0; i < displayed.GetSize(); ++i) {
        if (IsNodeSelected(displayed[i].id)) {
            if (first == NK::MaxUIndex)
                first = i;
            last = i;
        }
    }
    if (first == NK::MaxUIndex)
        return nullptr;
    for (NK::UIndex i = last + 1; i < displayed.GetSize(); ++i) {
        if (!IsNodeSelected(displayed[i].id))
            return &displayed[i].item->GetModel();
    }
    for (NK::UIndex i = first; i-- > 0;) {
        if (!IsNodeSelected(displayed[i].id))
            return &displayed[i].item->GetModel();
    }
    return nullptr;
}

std::optional<int> HierarchicalTableView::GetRowIndex(const NK::Guid& id) const
{
    if (FindNode(id) == nullptr)
        return std::nullopt;
    return HierarchicalTableViewBase::GetRowIndex(id);
}

void HierarchicalTableView::ScrollToNode(const NK::Guid& id)
{
    if (FindNode(id) != nullptr && ContainsNode(id))
        HierarchicalTableViewBase::ScrollToNode(id);
}

bool HierarchicalTableView::ActivateTextEditModeOnSelectedNode(const NK::UniString& columnId)
{
    const NK::Array<HierarchicalItemId> selected = GetSelectedNodes();
    if (selected.GetSize() != 1)
        return false;
    bool knownColumn = GetColumns().IsEmpty();
    for (const QM::TableView::Column& column : GetColumns())
        knownColumn = knownColumn || column.id == columnId;
    if (!NK_PRECOND(knownColumn))
        return false;
    HierarchicalTableViewBase::ScrollToNode(selected[0].id);
    BeginNodeTextEdit(selected[0].id);
    return true;
}

void HierarchicalTableView::SetUserDelegate(UserDelegate* userDelegate)
{
    if (!NK_ASSERT_TEXT(tableDelegate != nullptr, "delegate != nullptr")) {
        LogAssertError(LogFile, __LINE__);
        return;
    }
    tableDelegate->SetUserDelegate(userDelegate);
}

void HierarchicalTableView::WillAppear()
{
    Show();
}

void HierarchicalTableView::WillDisappear()
{
    Hide();
}

}  // namespace WZ::Folderable
