// "femap.model" with members that are not FEMAP's and whose names begin with "standin": a test uses
// them to say how later calls go and to read what came in.
#pragma once

#include "standin/ApplicationObject.h"
#include "standin/DockWindow.h"

#include <memory>
#include <string>

namespace standin
{

class ControlledApplication : public ApplicationObject
{
public:
    using ApplicationObject::ApplicationObject;

    int sendEvent(int code);
    int busy(int count);
    int reject(int count);
    int failAt(int call);
    int dieAt(int call);
    int stallAt(int call, int seconds);
    int fault(const std::string& member, const std::string& how);
    int queueSelection(const std::string& text);
    int recordTo(const std::string& path);
    int dock(int docks);
    int dockHeard();
    int modelState(const std::string& state);
    std::string modes();
    std::string superseded();
    int callCount();
    int lockCount();
    int objectCount();
    std::string messages();
    std::string registrations();
    int quit();
    int withdraw();

protected:
    std::span<const library::Member> declared() const override;
    std::size_t memberCount() const override;
    std::string_view nameOf(std::size_t row) const override;
    bool canBePut(std::size_t row) const override;
    Variant serve(std::size_t row, Arguments& arguments) override;

private:
    std::unique_ptr<DockWindow> dock_;
};

}  // namespace standin
