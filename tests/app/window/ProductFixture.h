#pragma once

#include "FormDriver.h"
#include "FormFiles.h"
#include "standin/StandIn.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace driver
{

// The product itself, beside a stand-in for FEMAP in another process.
struct Product : testing::Test
{
    FormFiles files;
    StandIn femap{files.folder() / "panel.neu"};
    std::unique_ptr<Process> process;
    std::unique_ptr<FormDriver> form;

    /// Starts it and does not wait for its window.
    void launch(const std::wstring& arguments = L"$form.log$DEBUG")
    {
        process = std::make_unique<Process>(programPath("VelmarFemapInterface.exe"), arguments,
                                            files.folder());
        form = std::make_unique<FormDriver>(*process);
    }
    void start(const std::wstring& arguments = L"$form.log$DEBUG")
    {
        launch(arguments);
        form->window();
    }

    void addMaterials(const std::string& picked, const std::vector<std::string>& fields)
    {
        femap.pick(picked);
        form->choose("InputSelection", "Materials");
        form->press("InputsButton");
        form->add(fields);
    }
    std::vector<std::string> inputs() { return form->rows("InputsList", 1); }
};

}  // namespace driver
