#include "NK/NKGuid.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMListBox.hpp"
#include "QM/QMTreeView.hpp"
#include "WZSources/WZAttachedRecord.hpp"

#include <gtest/gtest.h>

namespace {

struct RowRecord : NK::Object {
    explicit RowRecord(int payload) : payload(payload) {}
    int payload;
};

struct OtherRecord : NK::Object {};

TEST(AttachedRecordTest, RecordTravelsWithItsRowAndAMissingOrForeignOneThrowsNullReference)
{
    QM::Dialog dialog;
    QM::ListBox listBox {dialog, QM::Rect(0, 0, 200, 100)};
    listBox.InsertItem(1);
    listBox.InsertItem(2);
    WZ::AttachRecord<RowRecord>(listBox, short(2), 70);
    listBox.InsertItem(1);  // the record's row is now row 3
    EXPECT_EQ(WZ::GetAttachedRecord<RowRecord>(listBox, short(3))->payload, 70);
    listBox.SetItemObjectData(2, NK::NewRef<OtherRecord>());
    EXPECT_THROW(WZ::GetAttachedRecord<RowRecord>(listBox, short(1)), NK::NullReferenceException);
    EXPECT_THROW(WZ::GetAttachedRecord<RowRecord>(listBox, short(2)), NK::NullReferenceException);
    EXPECT_TRUE(WZ::FindAttachedRecord<RowRecord>(listBox, short(2)).IsNull());

    QM::TreeView treeView {dialog, QM::Rect(0, 100, 200, 300)};
    int parent = treeView.AppendItem(0);
    int child = treeView.AppendItem(parent);
    WZ::AttachRecord<RowRecord>(treeView, child, 3);
    EXPECT_EQ(WZ::GetAttachedRecord<RowRecord>(treeView, child)->payload, 3);
    EXPECT_THROW(WZ::GetAttachedRecord<RowRecord>(treeView, parent), NK::NullReferenceException);
}

}  // namespace
