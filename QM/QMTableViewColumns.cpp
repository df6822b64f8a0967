#include "QM/QMTableViewColumns.hpp"

#include <unordered_set>

namespace QM::TableView {

namespace {

constexpr NK::UInt16 layoutFormatVersion = 1;

}  // namespace

const ColumnLayout::Entry* ColumnLayout::Find(const NK::UniString& id) const
{
    for (const Entry& entry : entries) {
        if (entry.id == id)
            return &entry;
    }
    return nullptr;
}

bool ColumnLayout::IsValid() const
{
    std::unordered_set<std::u16string> seen;
    for (const Entry& entry : entries) {
        if (entry.width < 0 || !seen.insert(entry.id.GetUtf16()).second)
            return false;
    }
    return true;
}

NK::ErrCode ColumnLayout::Write(NK::OChannel& channel) const
{
    if (entries.GetSize() > 0xFFFF)
        return NK::ErrInvalidArgument;
    channel.Write(layoutFormatVersion);
    channel.Write(static_cast<NK::UInt16>(entries.GetSize()));
    for (const Entry& entry : entries) {
        channel.Write(entry.id);
        channel.Write(static_cast<NK::Int16>(entry.width));
        channel.Write(entry.visible);
    }
    return channel.GetStatus();
}

NK::ErrCode ColumnLayout::Read(NK::IChannel& channel)
{
    NK::UInt16 version = 0;
    if (NK::ErrCode error = channel.Read(version); error != NK::NoError)
        return error;
    if (version != layoutFormatVersion)
        return NK::ErrFrameVersion;
    NK::UInt16 count = 0;
    if (NK::ErrCode error = channel.Read(count); error != NK::NoError)
        return error;
    ColumnLayout read;
    for (NK::UInt16 i = 0; i < count; ++i) {
        Entry entry;
        NK::Int16 width = 0;
        channel.Read(entry.id);
        channel.Read(width);
        channel.Read(entry.visible);
        if (channel.GetStatus() != NK::NoError)
            return channel.GetStatus();
        entry.width = width;
        read.entries.Push(std::move(entry));
    }
    if (!read.IsValid())
        return NK::ErrChannelFormat;
    *this = std::move(read);
    return NK::NoError;
}

}  // namespace QM::TableView
