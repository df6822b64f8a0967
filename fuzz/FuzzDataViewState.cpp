// The foldered data view's state reader (the state, its view states and their layout states)
// on arbitrary bytes, over a data view with a hierarchical, a flat list and a tree-and-list view
// on show. A read that fails leaves the data view writing the same bytes as before; a read that
// succeeds gives a state that is written, read again and written again to the same bytes.
#include "FuzzCheck.hpp"

#include "FDVDataView/DataViewTestBench.hpp"

#include <cstdint>

namespace {

using namespace FDVDataViewTest;

std::vector<NK::Byte> StateOf(FolderedDataView& dataView)
{
    return Fuzz::Written([&](NK::OChannel& out) {
        Fuzz::Check(dataView.WriteState(out) == NK::NoError, "a data view with a state writes it");
    });
}

void ReadState(const NK::Byte* data, std::size_t size)
{
    // A data view of its own for every input, so that a finding replays alone.
    Bench browser;
    browser.dataView.SetItems(BuildForest(SampleForest()));
    browser.dataView.CreateDefaultState();
    browser.dataView.ShowCurrentView();
    browser.dataView.InitRect();
    const std::vector<NK::Byte> before = StateOf(browser.dataView);

    NK::MemoryIChannel input(data, size);
    if (browser.dataView.ReadState(input) != NK::NoError) {
        Fuzz::Check(StateOf(browser.dataView) == before, "a refused state leaves the data view as it was");
        return;
    }
    const std::vector<NK::Byte> once = StateOf(browser.dataView);
    NK::MemoryIChannel again(once);
    Fuzz::Check(browser.dataView.ReadState(again) == NK::NoError, "a written state is read again");
    Fuzz::Check(StateOf(browser.dataView) == once, "a state read back is written to the same bytes");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ReadState(reinterpret_cast<const NK::Byte*>(data), size);
    return 0;
}
