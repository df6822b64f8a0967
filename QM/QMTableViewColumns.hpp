// The columns of a table view and the value that saves their arrangement.
// - QM::TableView::Column: an id (unique within the table; the key under which the delegate is
//   asked for cell contents), a title, a width in pixels and whether it is shown. The first
//   shown column carries the tree (indentation and open/closed marks).
// - QM::TableView::ColumnLayout: the arrangement a user made (order, widths, shown columns) as a
//   value: compared with ==, applied to a table, written to and read from a channel. Reading
//   fails without touching the value, so a damaged state never half-applies.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKChannel.hpp"
#include "NK/NKUniString.hpp"

namespace QM::TableView {

struct Column {
    NK::UniString id;
    NK::UniString title;
    short width = 100;
    bool visible = true;

    bool operator==(const Column&) const = default;
};

class ColumnLayout {
public:
    struct Entry {
        NK::UniString id;
        short width = 0;
        bool visible = true;

        bool operator==(const Entry&) const = default;
    };

    ColumnLayout() = default;
    explicit ColumnLayout(NK::Array<Entry> entries) : entries(std::move(entries)) {}

    const NK::Array<Entry>& GetEntries() const noexcept { return entries; }
    bool IsEmpty() const noexcept { return entries.IsEmpty(); }
    // The entry of a column id; null when the layout does not name it.
    const Entry* Find(const NK::UniString& id) const;
    // Whether the entries can be applied: no negative width, no id named twice.
    bool IsValid() const;

    // Channel form: UInt16 format version (1), UInt16 entry count, then per entry the id
    // (UniString), the width (Int16) and the shown flag (Bool).
    NK::ErrCode Write(NK::OChannel& channel) const;
    // Reads a layout written by Write. On any failure the value is left as it was and the
    // error is returned: the channel's, NK::ErrFrameVersion for an unknown format version,
    // NK::ErrChannelFormat for entries that are not a valid layout.
    NK::ErrCode Read(NK::IChannel& channel);

    bool operator==(const ColumnLayout&) const = default;

private:
    NK::Array<Entry> entries;
};

}  // namespace QM::TableView
