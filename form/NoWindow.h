// A form that nobody sees.
#pragma once

#include "form/Context.h"

namespace form
{

class NoWindow : public FormHost
{
public:
    std::intptr_t windowHandle() override { return 0; }
    void hookEvents() override {}
    void unhookEvents() override {}
    void show() override {}
    void showProgress() override {}
    void unload() override {}
};

}  // namespace form
