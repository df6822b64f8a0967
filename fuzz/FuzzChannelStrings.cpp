// The channel's string readers on arbitrary bytes. The first byte chooses the reader (UTF-16
// string, 8-bit string decoded, 8-bit bytes raw); the rest is the stream. A failed read leaves
// its output as it was; a successful one consumes exactly what writing the value back produces
// (an 8-bit string may be normalised by its decoding once, after which it is stable).
#include "FuzzCheck.hpp"

#include "NK/NKChannel.hpp"

#include <cstdint>
#include <string>

namespace {

const NK::UniString untouched(u"untouched");

std::vector<NK::Byte> Consumed(const NK::Byte* data, std::size_t size, const NK::MemoryIChannel& channel)
{
    return std::vector<NK::Byte>(data, data + (size - channel.GetRemaining()));
}

// A reader whose value is written back byte for byte: a failed read leaves the value as it was,
// a successful one consumed exactly what the writer produces from the value.
template <typename Value, typename Read, typename Write>
void ReadsAndWritesBack(const NK::Byte* data, std::size_t size, const Value& untouchedValue, Read read, Write write,
                        const char* failedLeavesValue, const char* writtenBack)
{
    NK::MemoryIChannel channel(data, size);
    Value value = untouchedValue;
    if (read(channel, value) != NK::NoError) {
        Fuzz::Check(value == untouchedValue, failedLeavesValue);
        return;
    }
    const auto written = Fuzz::Written([&](NK::OChannel& out) { write(out, value); });
    Fuzz::Check(written == Consumed(data, size, channel), writtenBack);
}

void UniStrings(const NK::Byte* data, std::size_t size)
{
    ReadsAndWritesBack(
        data, size, untouched, [](NK::IChannel& in, NK::UniString& value) { return in.Read(value); },
        [](NK::OChannel& out, const NK::UniString& value) { out.Write(value); },
        "a failed UniString read leaves the value", "a UniString is written back as it was read");
}

void EightBitStrings(const NK::Byte* data, std::size_t size)
{
    NK::MemoryIChannel channel(data, size);
    NK::UniString value = untouched;
    if (channel.Read8BitString(value) != NK::NoError) {
        Fuzz::Check(value == untouched, "a failed 8-bit string read leaves the value");
        return;
    }
    const auto once = Fuzz::Written([&](NK::OChannel& out) { out.Write8BitString(value); });
    NK::MemoryIChannel again(once);
    NK::UniString reread;
    Fuzz::Check(again.Read8BitString(reread) == NK::NoError, "an 8-bit string written is read again");
    Fuzz::Check(again.GetRemaining() == 0, "reading it again consumes what was written");
    const auto twice = Fuzz::Written([&](NK::OChannel& out) { out.Write8BitString(reread); });
    Fuzz::Check(once == twice, "an 8-bit string is stable after one write and read");
}

void EightBitBytes(const NK::Byte* data, std::size_t size)
{
    ReadsAndWritesBack(
        data, size, std::string("untouched"), [](NK::IChannel& in, std::string& value) { return in.Read8BitBytes(value); },
        [](NK::OChannel& out, const std::string& value) { out.Write8BitBytes(value); },
        "a failed 8-bit bytes read leaves the value", "8-bit bytes are written back as they were read");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const NK::Byte* stream = reinterpret_cast<const NK::Byte*>(data) + 1;
    switch (data[0] % 3) {
    case 0: UniStrings(stream, size - 1); break;
    case 1: EightBitStrings(stream, size - 1); break;
    default: EightBitBytes(stream, size - 1); break;
    }
    return 0;
}
