#pragma once

#include "FormDriver.h"
#include "FormFiles.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace driver
{

// The form on a FEMAP in its own process, with the example model open.
struct Window : testing::Test
{
    FormFiles files;
    Process process{driver::programPath("embedded-form.exe"), L"panel.neu $form.log$DEBUG",
                    files.folder()};
    FormDriver form{process};

    /// "Select..." for materials, up to the list of their quantities; its window.
    HWND openListOfMaterials()
    {
        form.choose("InputSelection", "Materials");
        form.press("InputsButton");
        return form.dialog();
    }
    void addMaterials(const std::vector<std::string>& fields)
    {
        openListOfMaterials();
        form.add(fields);
    }
    std::vector<std::string> inputs() { return form.rows("InputsList", 1); }
};

}  // namespace driver
