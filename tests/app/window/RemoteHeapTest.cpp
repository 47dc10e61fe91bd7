#include "RemoteHeap.h"
#include "WindowFixture.h"

#include <gtest/gtest.h>

#include <cstdlib>

using driver::RemoteHeap;
using driver::Window;

namespace
{

TEST_F(Window, HasItsHeapCheckedForBytesBehindABlock)
{
    if (std::getenv("VELMAR_HEAP_CHECKED") == nullptr)
        GTEST_SKIP() << "the heap's checks are off";
    form.window();
    const RemoteHeap heap(process.handle());
    constexpr std::size_t size = 24;
    char* const behind = heap.allocate(size) + size;
    const auto write = [&](char byte) {
        WriteProcessMemory(process.handle(), behind, &byte, sizeof byte, nullptr);
    };
    char found = 0;
    ReadProcessMemory(process.handle(), behind, &found, sizeof found, nullptr);

    EXPECT_EQ(heap.isSound(), true);
    write('!');
    EXPECT_EQ(heap.isSound(), false);

    write(found);
    EXPECT_EQ(heap.isSound(), true);
}

}  // namespace
