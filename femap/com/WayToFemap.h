#pragma once

#include "femap/com/Apartment.h"
#include "femap/com/BusyFilter.h"
#include "femap/com/ComApplication.h"
#include "femap/com/Patience.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace femap::com
{

/// All that a program needs to reach FEMAP from one thread: COM, patience with a busy FEMAP, and
/// the connector. COM is there for as long as this.
class WayToFemap : public Connector
{
public:
    /// dialogs answers FEMAP's selection dialogs in place of the engineer; null: FEMAP shows them.
    explicit WayToFemap(SelectionDialogs* dialogs) : connector_(dialogs, patience_) {}

    /// Who tells the engineer that FEMAP is busy.
    void reportTo(std::function<void(const std::string& text)> report)
    {
        patience_->report = std::move(report);
    }

    std::unique_ptr<Application> attach() override { return connector_.attach(); }
    std::unique_ptr<Application> create() override { return connector_.create(); }

private:
    Apartment apartment_;
    std::shared_ptr<Patience> patience_ = std::make_shared<Patience>();
    BusyFilter filter_{*patience_};
    ComConnector connector_;
};

}  // namespace femap::com
