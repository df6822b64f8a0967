// The class frame reader on arbitrary bytes: frames are read one after the other, as a reader
// of a record list would, until the stream ends or fails. A frame that is taken is written back
// byte for byte from its identity, version and body; a refused one (foreign identity, newer
// version) is passed over whole and leaves the stream sound; anything else fails the stream.
#include "FuzzCheck.hpp"

#include "NK/NKClassFrame.hpp"

#include <cstdint>

namespace {

const NK::ClassInfo reader("FuzzedRecord", NK::Guid::FromNumber(0xF0, 1), NK::ClassVersion(2, 1));
constexpr NK::UIndex headerSize = 16 + 2 + 2 + 4;

void ReadFrames(const NK::Byte* data, std::size_t size)
{
    NK::MemoryIChannel source(data, size);
    while (source.GetStatus() == NK::NoError && source.GetRemaining() > 0) {
        const NK::UIndex start = source.GetPosition();
        NK::InputFrame frame(source, reader);
        const NK::ErrCode status = frame.GetStatus();
        if (status == NK::ErrForeignFrame || status == NK::ErrFrameVersion) {
            Fuzz::Check(source.GetStatus() == NK::NoError, "a refused frame leaves the stream sound");
            NK::UInt16 probe = 0;
            Fuzz::Check(frame.GetChannel().Read(probe) == status && probe == 0, "a refused frame's body reads nothing");
            Fuzz::Check(frame.End() == status, "a refused frame ends with its refusal");
            continue;
        }
        if (status != NK::NoError) {
            Fuzz::Check(source.GetStatus() == status, "a frame that cannot be read fails the stream");
            return;
        }
        Fuzz::Check(frame.GetStoredId() == reader.GetId() && frame.GetStoredVersion() <= reader.GetVersion(),
                    "only a frame of the reader's class and version is taken");
        std::vector<NK::Byte> body;
        const NK::UInt64 length = frame.GetChannel().GetRemaining();
        Fuzz::Check(frame.GetChannel().ReadBlock(body, length) == NK::NoError, "a taken frame's body can be read");
        Fuzz::Check(frame.End() == NK::NoError, "a body read to its end ends the frame cleanly");
        Fuzz::Check(source.GetPosition() == start + headerSize + length, "a frame takes its header and body");

        const NK::ClassInfo stored("FuzzedRecord", frame.GetStoredId(), frame.GetStoredVersion());
        const auto written = Fuzz::Written([&](NK::OChannel& out) {
            NK::OutputFrame again(out, stored);
            again.GetChannel().WriteBlock(body);
            Fuzz::Check(again.End() == NK::NoError, "a frame is written again");
        });
        Fuzz::Check(written == std::vector<NK::Byte>(data + start, data + source.GetPosition()),
                    "a frame is written back byte for byte");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ReadFrames(reinterpret_cast<const NK::Byte*>(data), size);
    return 0;
}
