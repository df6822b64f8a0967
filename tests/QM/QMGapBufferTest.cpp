#include "QM/QMGapBuffer.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <vector>

namespace {

// Random insertions and erasures anywhere, with move-only elements, always read back like a vector.
TEST(GapBufferTest, BehavesLikeAVectorUnderRandomEdits)
{
    std::mt19937 random(7);
    QM::GapBuffer<std::unique_ptr<int>> buffer;
    std::vector<int> reference;
    for (int step = 0; step < 5000; ++step) {
        bool insert = reference.empty() || random() % 3 != 0;
        if (insert) {
            std::size_t at = random() % (reference.size() + 1);
            buffer.insert(at, std::make_unique<int>(step));
            reference.insert(reference.begin() + static_cast<long>(at), step);
        } else {
            std::size_t at = random() % reference.size();
            buffer.erase(at);
            reference.erase(reference.begin() + static_cast<long>(at));
        }
        ASSERT_EQ(buffer.size(), reference.size());
        if (step % 97 == 0) {
            std::vector<int> seen;
            buffer.ForEach([&](const std::unique_ptr<int>& p) { seen.push_back(*p); });
            ASSERT_EQ(seen, reference) << "step " << step;
            for (std::size_t i = 0; i < reference.size(); ++i)
                ASSERT_EQ(*buffer[i], reference[i]);
        }
    }
    buffer.clear();
    EXPECT_TRUE(buffer.empty());
}

}  // namespace
