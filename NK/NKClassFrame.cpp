#include "NK/NKClassFrame.hpp"

#include <limits>

namespace NK {

OutputFrame::OutputFrame(OChannel& target, const ClassInfo& classInfo) : target(target), classInfo(classInfo) {}

ErrCode OutputFrame::End()
{
    if (ended)
        return result;
    ended = true;
    if (body.GetStatus() != NoError)
        return result = body.GetStatus();
    if (body.GetSize() > std::numeric_limits<UInt32>::max())
        return result = ErrInvalidArgument;
    target.Write(classInfo.GetId());
    target.Write(classInfo.GetVersion().major);
    target.Write(classInfo.GetVersion().minor);
    target.Write(static_cast<UInt32>(body.GetSize()));
    target.WriteBlock(body.GetBytes());
    return result = target.GetStatus();
}

InputFrame::InputFrame(IChannel& source, const ClassInfo& classInfo) : body(ReadFrame(source, classInfo))
{
    if (status != NoError)
        body.Refuse(status);
}

std::vector<Byte> InputFrame::ReadFrame(IChannel& source, const ClassInfo& classInfo)
{
    Guid id;
    UInt16 major = 0;
    UInt16 minor = 0;
    UInt32 length = 0;
    source.Read(id);
    source.Read(major);
    source.Read(minor);
    if (source.Read(length) != NoError) {
        status = source.GetStatus();
        return {};
    }
    storedId = id;
    storedVersion = ClassVersion(major, minor);
    if (id != classInfo.GetId() || storedVersion > classInfo.GetVersion()) {
        // Refused, but passed over whole, so that the source can go on with what follows.
        status = source.Skip(length) != NoError ? source.GetStatus() : id != classInfo.GetId() ? ErrForeignFrame : ErrFrameVersion;
        return {};
    }
    std::vector<Byte> bytes;
    status = source.ReadBlock(bytes, length);
    return bytes;
}

ErrCode InputFrame::End() const noexcept
{
    return status != NoError ? status : body.GetStatus();
}

}  // namespace NK
