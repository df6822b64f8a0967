// QM::GapBuffer: a sequence indexed from 0 whose insertions and deletions are cheap near the
// previous one. The free slots (the gap) sit where the last change was made; moving the gap costs
// only the elements it passes. A list box is updated by deletions from the bottom up followed by
// insertions from the top down, so a whole update moves each row at most a few times instead of
// shifting every later row on every operation.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace QM {

template <typename T>
class GapBuffer {
public:
    std::size_t size() const noexcept { return storage.size() - (gapEnd - gapStart); }
    bool empty() const noexcept { return size() == 0; }

    T& operator[](std::size_t index) { return storage[Slot(index)]; }
    const T& operator[](std::size_t index) const { return storage[Slot(index)]; }

    // Inserts before `index` (index == size() appends).
    void insert(std::size_t index, T&& value)
    {
        if (gapStart == gapEnd)
            Grow();
        MoveGapTo(index);
        storage[gapStart++] = std::move(value);
    }

    void erase(std::size_t index)
    {
        MoveGapTo(index);
        storage[gapEnd++] = T();  // release what the element held
    }

    void clear()
    {
        storage.clear();
        gapStart = gapEnd = 0;
    }

    template <typename Fn>
    void ForEach(Fn&& fn)
    {
        for (std::size_t i = 0; i < gapStart; ++i)
            fn(storage[i]);
        for (std::size_t i = gapEnd; i < storage.size(); ++i)
            fn(storage[i]);
    }

private:
    std::size_t Slot(std::size_t index) const noexcept { return index < gapStart ? index : index + (gapEnd - gapStart); }

    void MoveGapTo(std::size_t index)
    {
        if (gapStart == gapEnd) {  // an empty gap moves for free (and must not self-move elements)
            gapStart = gapEnd = index;
            return;
        }
        while (index < gapStart)
            storage[--gapEnd] = std::move(storage[--gapStart]);
        while (index > gapStart)
            storage[gapStart++] = std::move(storage[gapEnd++]);
    }

    void Grow()
    {
        std::size_t oldCapacity = storage.size();
        std::size_t newCapacity = oldCapacity < 16 ? 16 : oldCapacity * 2;
        std::vector<T> bigger(newCapacity);
        std::size_t tail = oldCapacity - gapEnd;
        for (std::size_t i = 0; i < gapStart; ++i)
            bigger[i] = std::move(storage[i]);
        for (std::size_t i = 0; i < tail; ++i)
            bigger[newCapacity - tail + i] = std::move(storage[gapEnd + i]);
        storage = std::move(bigger);
        gapEnd = newCapacity - tail;
    }

    std::vector<T> storage;
    std::size_t gapStart = 0;
    std::size_t gapEnd = 0;
};

}  // namespace QM
