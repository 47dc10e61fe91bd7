#include "StandIn.h"

#include "logging/RuntimeError.h"

#include <stdexcept>

namespace driver
{

namespace
{

IDispatch* runningFemap()
{
    CLSID id{};
    IUnknown* found = nullptr;
    if (FAILED(CLSIDFromProgID(L"femap.model", &id)) ||
        FAILED(GetActiveObject(id, nullptr, &found)))
        return nullptr;
    void* object = nullptr;
    found->QueryInterface(IID_IDispatch, &object);
    found->Release();
    return static_cast<IDispatch*>(object);
}

}  // namespace

StandIn::StandIn(const std::filesystem::path& model)
    : process_(programPath("../../femap/com/standin/femap-standin.exe"),
               L"--model \"" + model.wstring() + L'"', model.parent_path())
{
    IDispatch* object = nullptr;
    if (!waitUntil([&] { return (object = runningFemap()) != nullptr; }))
        throw std::runtime_error("The stand-in did not start");
    femap_ = std::make_unique<femap::com::Dispatch>(
        object, "application",
        std::make_shared<femap::com::Connection>(std::make_shared<femap::com::Patience>()));
}

StandIn::~StandIn()
{
    try {
        if (process_.isRunning())
            femap_->call("standinQuit");
        waitUntil([&] { return !process_.isRunning(); });
    }
    catch (const std::exception&) {
        process_.kill();
    }
    femap_.reset();
}

}  // namespace driver
