#include "NK/NKClassFrame.hpp"

#include <gtest/gtest.h>

namespace {

const NK::ClassInfo pointV1 {"Point", NK::Guid("{3CE0C83B-E45A-4F20-BF27-B751B4B591D9}"), NK::ClassVersion(1, 0)};
const NK::ClassInfo pointV2 {"Point", pointV1.GetId(), NK::ClassVersion(1, 1)};
const NK::ClassInfo label {"Label", NK::Guid("{0B1C2D3E-0000-4000-8000-000000000001}"), NK::ClassVersion(1, 0)};

// Version 1.0 of a point writes x and y; version 1.1 adds a name after them.
NK::ErrCode WritePoint(NK::OChannel& out, const NK::ClassInfo& info, NK::Int16 x, NK::Int16 y)
{
    NK::OutputFrame frame(out, info);
    frame.GetChannel().Write(x);
    frame.GetChannel().Write(y);
    if (info.GetVersion() >= NK::ClassVersion(1, 1))
        frame.GetChannel().Write(NK::UniString("named"));
    return frame.End();
}

NK::ErrCode ReadPoint(NK::IChannel& in, const NK::ClassInfo& info, NK::Int16& x, NK::Int16& y)
{
    NK::InputFrame frame(in, info);
    frame.GetChannel().Read(x);
    frame.GetChannel().Read(y);
    return frame.End();
}

TEST(ClassFrameTest, HeaderCarriesIdentityVersionAndLengthAndAReaderPassesOverWhatItDoesNotKnow)
{
    NK::MemoryOChannel out;
    ASSERT_EQ(WritePoint(out, pointV2, 3, -4), NK::NoError);
    out.Write(NK::Int32(99));  // what follows the frame must not be eaten
    NK::MemoryIChannel header(out.GetBytes());
    NK::Guid id;
    NK::UInt16 major = 0, minor = 0;
    NK::UInt32 length = 0;
    for (NK::ErrCode error : {header.Read(id), header.Read(major), header.Read(minor), header.Read(length)})
        ASSERT_EQ(error, NK::NoError);
    EXPECT_EQ(id, pointV1.GetId());
    EXPECT_EQ(major * 10 + minor, 11);
    EXPECT_EQ(length, 4u + 4 + 2 * 5);  // x, y and the name "named"

    NK::MemoryIChannel in(out.GetBytes());
    NK::Int16 x = 0, y = 0;
    EXPECT_EQ(ReadPoint(in, pointV2, x, y), NK::NoError);
    EXPECT_EQ(x * 100 + y, 296);
    NK::Int32 after = 0;
    EXPECT_EQ(in.Read(after), NK::NoError);
    EXPECT_EQ(after, 99);
}

TEST(ClassFrameTest, ForeignNewerAndOverreadFramesAreRefusedAndPassedOverWhole)
{
    NK::MemoryOChannel out;
    WritePoint(out, pointV2, 1, 2);
    WritePoint(out, pointV2, 1, 2);
    WritePoint(out, pointV1, 3, 4);
    out.Write(NK::Int16(5));
    NK::MemoryIChannel in(out.GetBytes());

    NK::InputFrame asLabel(in, label);
    EXPECT_EQ(asLabel.GetStatus(), NK::ErrForeignFrame);
    EXPECT_EQ(asLabel.GetStoredId(), pointV1.GetId());
    NK::Int16 untouched = 77;
    EXPECT_EQ(asLabel.GetChannel().Read(untouched), NK::ErrForeignFrame);
    EXPECT_EQ(untouched, 77);
    EXPECT_EQ(asLabel.End(), NK::ErrForeignFrame);
    EXPECT_EQ(in.GetStatus(), NK::NoError);

    NK::Int16 x = 0, y = 0;
    EXPECT_EQ(ReadPoint(in, pointV1, x, y), NK::ErrFrameVersion);
    EXPECT_EQ(x, 0);
    {
        NK::InputFrame frame(in, pointV1);
        NK::Int16 z = 55;
        frame.GetChannel().Read(x);
        frame.GetChannel().Read(y);
        EXPECT_EQ(frame.GetChannel().Read(z), NK::ErrChannelEnd);  // reading past the body stops at the frame
        EXPECT_EQ(z, 55);
        EXPECT_EQ(frame.End(), NK::ErrChannelEnd);
    }
    EXPECT_EQ(x * 10 + y, 34);
    NK::Int16 next = 0;
    EXPECT_EQ(in.Read(next), NK::NoError);
    EXPECT_EQ(next, 5);
}

TEST(ClassFrameTest, TruncatedFramesFailTheSource)
{
    NK::MemoryOChannel out;
    WritePoint(out, pointV1, 1, 2);
    for (NK::UIndex length = 0; length < out.GetSize(); ++length) {
        NK::MemoryIChannel in(out.GetBytes().data(), length);
        NK::Int16 x = 0, y = 0;
        EXPECT_EQ(ReadPoint(in, pointV1, x, y), NK::ErrChannelEnd) << length;
        EXPECT_EQ(in.GetStatus(), NK::ErrChannelEnd) << length;
        EXPECT_EQ(x, 0) << length;
    }
}

TEST(ClassFrameTest, FramesNestAndEndOnce)
{
    NK::MemoryOChannel out;
    NK::OutputFrame outer(out, label);
    outer.GetChannel().Write(NK::UniString("outer"));
    EXPECT_EQ(WritePoint(outer.GetChannel(), pointV1, 8, 9), NK::NoError);
    EXPECT_EQ(outer.End(), NK::NoError);
    EXPECT_EQ(outer.End(), NK::NoError);
    EXPECT_EQ(out.GetSize(), 2 * (16u + 8) + 4 + 2 * 5 + 4);

    NK::MemoryIChannel in(out.GetBytes());
    NK::InputFrame reader(in, label);
    NK::UniString text;
    NK::Int16 x = 0, y = 0;
    reader.GetChannel().Read(text);
    EXPECT_EQ(ReadPoint(reader.GetChannel(), pointV1, x, y), NK::NoError);
    EXPECT_EQ(reader.End(), NK::NoError);
    EXPECT_EQ(text, NK::UniString("outer"));
    EXPECT_EQ(y, 9);
}

}  // namespace
