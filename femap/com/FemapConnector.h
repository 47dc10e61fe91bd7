// All that a program needs to reach FEMAP from one thread: COM, the retry policy for a busy FEMAP,
// and the connector. COM is initialised for as long as the object lives.
#pragma once

#include "femap/com/Apartment.h"
#include "femap/com/BusyFilter.h"
#include "femap/com/ComApplication.h"
#include "femap/com/RetryPolicy.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace femap::com
{

class FemapConnector : public Connector
{
public:
    /// dialogs answers FEMAP's selection dialogs in place of the engineer; null: FEMAP shows them.
    explicit FemapConnector(SelectionDialogs* dialogs) : connector_(dialogs, retryPolicy_) {}

    /// report tells the engineer that FEMAP is busy.
    void reportTo(std::function<void(const std::string& text)> report)
    {
        retryPolicy_->report = std::move(report);
    }

    /// shows is called whenever a FEMAP that is there lets the program wait.
    void beforeWaits(std::function<void()> shows) { retryPolicy_->begins = std::move(shows); }

    /// isToEnd is asked again and again while FEMAP lets the program wait: whether the engineer
    /// ends that.
    void endWaitsWhen(std::function<bool()> isToEnd) { retryPolicy_->isToEnd = std::move(isToEnd); }

    std::unique_ptr<Application> attach() override { return connector_.attach(); }
    std::unique_ptr<Application> create() override { return connector_.create(); }
    RunningFemaps running() override { return connector_.running(); }
    void waitBriefly(bool briefly) override { connector_.waitBriefly(briefly); }
    bool isAnswering() override { return connector_.isAnswering(); }

private:
    Apartment apartment_;
    std::shared_ptr<RetryPolicy> retryPolicy_ = std::make_shared<RetryPolicy>();
    BusyFilter filter_{*retryPolicy_};
    ComConnector connector_;
};

}  // namespace femap::com
