// "femap.model" itself; there is one for as long as the server runs. Members whose names begin with
// "standin" are not FEMAP's: a test uses them to say how later calls go and to read what came in.
#pragma once

#include "standin/DockWindow.h"
#include "standin/Object.h"

#include <memory>
#include <string>

namespace standin
{

class ApplicationObject : public ObjectOf<ApplicationObject>
{
public:
    explicit ApplicationObject(Server& server) : ObjectOf(server, "application") {}

    static const std::span<const library::Member> declarations;
    static std::span<const Member<ApplicationObject>> members();

    /// End the server when its last client has gone.
    void endWithLastClient() { endsWithLastClient_ = true; }
    ULONG STDMETHODCALLTYPE Release() override;

    std::string modelName();
    double version();
    int activeID(EntityType type);
    int countOf(EntityType type);
    int nextIDOf(EntityType type);
    int visible(bool show);
    int fileOpen(bool useDialog, const std::string& path);
    int allModels(Arguments& arguments);
    int lock();
    int unlock();
    int message(int colour, const std::string& text);
    int statusShow(bool enable, int maximum);
    int statusUpdate(int current);
    int registerAddInPane(Arguments& arguments);
    int measure(Arguments& arguments);
    int convertVectorID(int id);

    int sendEvent(int code);
    int busy(int count);
    int reject(int count);
    int failAt(int call);
    int dieAt(int call);
    int fault(const std::string& member, const std::string& how);
    int queueSelection(const std::string& text);
    int recordTo(const std::string& path);
    int dock(int docks);
    int modelState(const std::string& state);
    int callCount();
    int lockCount();
    int objectCount();
    std::string messages();
    std::string registrations();
    int quit();

protected:
    void unreferenced() override {}

private:
    bool endsWithLastClient_ = false;
    std::unique_ptr<DockWindow> dock_;
};

}  // namespace standin
