#pragma once

#include "fake/TemporaryFolder.h"
#include "system/Files.h"
#include "system/RuntimeError.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>

/// The real disk, and a folder on it that goes with the test.
class DiskFilesFixture : public testing::Test
{
protected:
    void write(const std::string& path, const std::string& content)
    {
        const auto file = files.create(path);
        file->write(content);
        file->close();
    }
    void replace(const std::string& path)
    {
        const sys::TemporaryFile fresh = files.createBeside(path);
        fresh.file->write("new");
        fresh.file->close();
        files.replace(path, fresh.path);
    }
    static std::optional<sys::RuntimeError> raisedBy(const std::function<void()>& step)
    {
        try {
            step();
            return std::nullopt;
        }
        catch (const sys::RuntimeError& error) {
            return error;
        }
    }
    static sys::RuntimeError errorOf(const std::function<void()>& step)
    {
        const auto error = raisedBy(step);
        EXPECT_TRUE(error) << "no error was raised";
        return error.value_or(sys::RuntimeError(sys::ErrorNumber::InvalidCall, ""));
    }
    static std::string refusalOf(const std::function<void()>& step)
    {
        const auto error = raisedBy(step);
        return error ? error->description() : "no error";
    }

    fake::TemporaryFolder folder;
    sys::DiskFiles files;
};
