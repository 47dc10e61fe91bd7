// A file that another program has open and lets nobody else read, write or delete.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <io.h>
#include <share.h>
#include <string>
#include <thread>

namespace reliability
{

/// Until _close of the result.
inline int hold(const std::string& path)
{
    const std::filesystem::path wide(std::u8string(path.begin(), path.end()));
    const int file = _wsopen(wide.c_str(), _O_RDONLY | _O_BINARY, _SH_DENYRW, 0);
    EXPECT_GE(file, 0);
    return file;
}

/// Until a moment later; the result is to be joined.
inline std::thread holdForAMoment(const std::string& path)
{
    return std::thread([held = hold(path)] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        _close(held);
    });
}

}  // namespace reliability
