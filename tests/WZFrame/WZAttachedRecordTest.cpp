#include "NK/NKGuid.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMListBox.hpp"
#include "QM/QMTreeView.hpp"
#include "WZSources/WZAttachedRecord.hpp"

#include <gtest/gtest.h>

namespace {

struct RowRecord : NK::Object {
    RowRecord(NK::Guid id, int payload) : id(id), payload(payload) {}
    NK::Guid id;
    int payload;
};

struct OtherRecord : NK::Object {};

class AttachedRecordTest : public ::testing::Test {
protected:
    QM::Dialog dialog;
    QM::ListBox listBox {dialog, QM::Rect(0, 0, 200, 100)};
    QM::TreeView treeView {dialog, QM::Rect(0, 100, 200, 300)};
};

TEST_F(AttachedRecordTest, RecordTravelsWithItsRow)
{
    listBox.InsertItem(1);
    listBox.InsertItem(2);
    WZ::AttachRecord<RowRecord>(listBox, short(2), NK::Guid::FromNumber(0, 7), 70);
    listBox.InsertItem(1);  // the record's row is now row 3
    auto record = WZ::GetAttachedRecord<RowRecord>(listBox, short(3));
    EXPECT_EQ(record->id, NK::Guid::FromNumber(0, 7));
    EXPECT_EQ(record->payload, 70);
}

TEST_F(AttachedRecordTest, MissingOrForeignRecordThrowsNullReference)
{
    listBox.InsertItem(1);
    listBox.InsertItem(2);
    listBox.SetItemObjectData(2, NK::NewRef<OtherRecord>());
    try {
        WZ::GetAttachedRecord<RowRecord>(listBox, short(1));
        FAIL() << "no exception";
    } catch (const NK::NullReferenceException& e) {
        EXPECT_EQ(e.GetMessage(), "Null reference.");
    }
    EXPECT_THROW(WZ::GetAttachedRecord<RowRecord>(listBox, short(2)), NK::NullReferenceException);
    EXPECT_TRUE(WZ::FindAttachedRecord<RowRecord>(listBox, short(2)).IsNull());
}

TEST_F(AttachedRecordTest, WorksOnTreeNodes)
{
    int parent = treeView.AppendItem(0);
    int child = treeView.AppendItem(parent);
    WZ::AttachRecord<RowRecord>(treeView, child, NK::Guid::FromNumber(1, 2), 3);
    EXPECT_EQ(WZ::GetAttachedRecord<RowRecord>(treeView, child)->payload, 3);
    EXPECT_THROW(WZ::GetAttachedRecord<RowRecord>(treeView, parent), NK::NullReferenceException);
}

}  // namespace
