// Class frames: an object's data on a channel, wrapped with the identity and version of its
// class so that a reader can refuse what it does not know and pass over what it does not read.
//
// Layout of a frame, little-endian like every channel value:
//   Guid    class identity (16 bytes)
//   UInt16  major version
//   UInt16  minor version
//   UInt32  body length n
//   n bytes body: the object's own data
// The class name is not stored; it is for diagnostics only.
//
// Writing: an OutputFrame collects the body on its own channel and puts header and body on the
// target channel at End (so nothing reaches the target for a body that failed). Reading: an
// InputFrame reads the header and the whole body; the object reads its data from the frame's
// channel, which ends where the body ends, and any trailing data it leaves is passed over. A
// frame of another identity (ErrForeignFrame) or of a newer version than the reader knows
// (ErrFrameVersion) is refused: its body is passed over and the target channel stays sound, so
// the reader may go on with what follows. A truncated frame fails the target channel.
#pragma once

#include "NK/NKChannel.hpp"
#include "NK/NKGuid.hpp"
#include "NK/NKMemoryChannel.hpp"

#include <compare>
#include <string>

namespace NK {

struct ClassVersion {
    UInt16 major = 1;
    UInt16 minor = 0;

    constexpr ClassVersion() noexcept = default;
    constexpr ClassVersion(UInt16 major, UInt16 minor = 0) noexcept : major(major), minor(minor) {}
    auto operator<=>(const ClassVersion&) const noexcept = default;
};

class ClassInfo {
public:
    ClassInfo(std::string name, const Guid& id, ClassVersion version) : name(std::move(name)), id(id), version(version) {}

    const std::string& GetName() const noexcept { return name; }
    const Guid& GetId() const noexcept { return id; }
    const ClassVersion& GetVersion() const noexcept { return version; }

private:
    std::string name;
    Guid id;
    ClassVersion version;
};

class OutputFrame {
public:
    OutputFrame(OChannel& target, const ClassInfo& classInfo);
    OutputFrame(const OutputFrame&) = delete;
    OutputFrame& operator=(const OutputFrame&) = delete;

    // Where the object writes its data.
    OChannel& GetChannel() noexcept { return body; }
    // Writes header and body to the target. Returns the body's error when the body failed
    // (nothing is written then), else the target's status. Runs once; later calls repeat the
    // result.
    ErrCode End();

private:
    OChannel& target;
    const ClassInfo& classInfo;
    MemoryOChannel body;
    bool ended = false;
    ErrCode result = NoError;
};

class InputFrame {
public:
    // Reads the header and the body at once; GetStatus tells whether the frame is usable.
    InputFrame(IChannel& source, const ClassInfo& classInfo);
    InputFrame(const InputFrame&) = delete;
    InputFrame& operator=(const InputFrame&) = delete;

    // NoError, ErrForeignFrame, ErrFrameVersion, or the source channel's error.
    ErrCode GetStatus() const noexcept { return status; }
    // The identity and version found in the stream (valid once the header was read).
    const Guid& GetStoredId() const noexcept { return storedId; }
    const ClassVersion& GetStoredVersion() const noexcept { return storedVersion; }
    // Where the object reads its data. When the frame was refused, it reads nothing: every
    // read returns the frame's status.
    IChannel& GetChannel() noexcept { return body; }
    // The frame's status if it has one, else the body channel's (an object that read past its
    // body gets ErrChannelEnd here). Unread trailing data was already passed over.
    ErrCode End() const noexcept;

private:
    // A body channel that can be made to fail with the frame's refusal.
    class BodyChannel : public MemoryIChannel {
    public:
        explicit BodyChannel(std::vector<Byte> bytes) noexcept : MemoryIChannel(std::move(bytes)) {}
        void Refuse(ErrCode error) noexcept { Fail(error); }
    };

    // Reads the header, sets the status and gives the body's bytes (none for a refused frame).
    std::vector<Byte> ReadFrame(IChannel& source, const ClassInfo& classInfo);

    Guid storedId;
    ClassVersion storedVersion {0, 0};
    ErrCode status = NoError;
    BodyChannel body;  // after the fields that ReadFrame sets while it is initialised
};

}  // namespace NK
