// FEMAP and its objects, each of which hands every call on to another one and tells a watch of it.
#pragma once

#include "fake/CallWatch.h"
#include "femap/Application.h"

#include <any>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace fake
{

/// An object of FEMAP under a watch; a base also for one that answers some calls otherwise.
template <class Interface>
class Watched : public Interface
{
public:
    Watched(std::unique_ptr<Interface> real, CallWatch& watch, std::string name = {})
        : real_(std::move(real)), watch_(watch), name_(std::move(name))
    {
        ++watch_.objects;
    }
    ~Watched() override { --watch_.objects; }
    Watched(const Watched&) = delete;
    Watched& operator=(const Watched&) = delete;

protected:
    /// Tells of a call that its caller makes then; nothing can be answered instead.
    template <class... Arguments>
    Interface& told(const char* call, const Arguments&... arguments)
    {
        watch_.tell({name_, call, (textOf(arguments) + ... + loaded_)});
        return *real_;
    }
    /// Tells of a call and makes it, unless the watch has an answer.
    template <class Make, class... Arguments>
    auto asked(const char* call, const Make& make, const Arguments&... arguments)
    {
        return made({name_, call, (textOf(arguments) + ... + loaded_)}, make, arguments...);
    }
    /// The same for the call that loads an ID.
    femap::ReturnCode load(int id)
    {
        const femap::ReturnCode code = made({name_, "Get", textOf(id)}, &Interface::Get, id);
        if (code == femap::ReturnCode::Ok)
            loaded_ = textOf(id);
        return code;
    }
    /// An object that this one hands out.
    template <class Other, class Real>
    std::unique_ptr<Other> watched(std::unique_ptr<Real> real, const std::string& name)
    {
        return std::make_unique<Other>(std::move(real), watch_, name);
    }

private:
    template <class Argument>
    static std::string textOf(const Argument& argument)
    {
        if constexpr (std::is_convertible_v<Argument, std::string>)
            return ' ' + argument;
        else
            return ' ' + std::to_string(static_cast<int>(argument));
    }
    template <class Make, class... Arguments>
    auto made(const Call& call, const Make& make, const Arguments&... arguments)
    {
        using Answer = std::invoke_result_t<Make, Interface&, const Arguments&...>;
        watch_.tell(call);
        if (const std::any* const answer = watch_.answerTo(call))
            return std::any_cast<Answer>(*answer);
        return std::invoke(make, *real_, arguments...);
    }

    std::unique_ptr<Interface> real_;
    CallWatch& watch_;
    std::string name_;
    std::string loaded_;
};

/// What is read by name.
template <class Interface>
class WatchedMembers : public Watched<Interface>
{
public:
    using Watched<Interface>::Watched;

    femap::Value member(const std::string& name) override
    {
        return this->asked("member", Plain{&femap::MemberObject::member}, name);
    }
    femap::Value member(const std::string& name, int index) override
    {
        return this->asked("member", Indexed{&femap::MemberObject::member}, name, index);
    }

private:
    using Plain = femap::Value (femap::MemberObject::*)(const std::string&);
    using Indexed = femap::Value (femap::MemberObject::*)(const std::string&, int);
};

using WatchedLoad = WatchedMembers<femap::MemberObject>;

class WatchedEntity : public WatchedMembers<femap::Entity>
{
public:
    using WatchedMembers::WatchedMembers;

    femap::ReturnCode Get(int id) override { return load(id); }
    int Type() override { return asked("Type", &femap::Entity::Type); }
    void prefetch(const std::vector<int>& ids,
                  const std::vector<femap::MemberName>& members) override
    {
        told("prefetch").prefetch(ids, members);
    }
};

class WatchedSet : public Watched<femap::EntitySet>
{
public:
    using Watched::Watched;

    int ID() override { return asked("ID", &femap::EntitySet::ID); }
    int count() override { return asked("count", &femap::EntitySet::count); }
    void Reset() override { told("Reset").Reset(); }
    int Next() override { return asked("Next", &femap::EntitySet::Next); }
    std::vector<int> ids() override { return asked("ids", &femap::EntitySet::ids); }
    femap::ReturnCode AddAll(femap::EntityType type) override
    {
        return asked("AddAll", &femap::EntitySet::AddAll, type);
    }
    femap::ReturnCode Copy(int setID) override
    {
        return asked("Copy", &femap::EntitySet::Copy, setID);
    }
    femap::ReturnCode Select(femap::EntityType type, bool clear, const std::string& title) override
    {
        return asked("Select", &femap::EntitySet::Select, type, clear, title);
    }
    femap::ReturnCode SelectMultiID(femap::EntityType type, int ownerSet,
                                    const std::string& title) override
    {
        return asked("SelectMultiID", &femap::EntitySet::SelectMultiID, type, ownerSet, title);
    }
};

class WatchedVector : public WatchedMembers<femap::OutputVector>
{
public:
    using WatchedMembers::WatchedMembers;

    femap::ReturnCode Get(int vectorID) override { return load(vectorID); }
    int ID() override { return asked("ID", &femap::OutputVector::ID); }
    std::string Title() override { return asked("Title", &femap::OutputVector::Title); }
    int classicID() override { return asked("classicID", &femap::OutputVector::classicID); }
    double Value(int entityID) override
    {
        return asked("Value", &femap::OutputVector::Value, entityID);
    }
    double maxval() override { return asked("maxval", &femap::OutputVector::maxval); }
    double minval() override { return asked("minval", &femap::OutputVector::minval); }
    void prefetch(std::vector<femap::VectorReading> plan) override
    {
        told("prefetch").prefetch(std::move(plan));
    }
};

class WatchedFunction : public Watched<femap::Function>
{
public:
    using Watched::Watched;

    femap::ReturnCode SelectID(const std::string& title) override
    {
        return asked("SelectID", &femap::Function::SelectID, title);
    }
    femap::ReturnCode Get(int id) override { return load(id); }
    int ID() override { return asked("ID", &femap::Function::ID); }
    std::string title() override { return asked("title", &femap::Function::title); }
    femap::FunctionPoints GetFunctionList() override
    {
        return asked("GetFunctionList", &femap::Function::GetFunctionList);
    }
};

class WatchedLoadDefinition : public Watched<femap::LoadDefinition>
{
public:
    using Watched::Watched;

    femap::ReturnCode Get(int loadSet, int id) override
    {
        return asked("Get", &femap::LoadDefinition::Get, loadSet, id);
    }
    std::string title() override { return asked("title", &femap::LoadDefinition::title); }
    int setID() override { return asked("setID", &femap::LoadDefinition::setID); }
    int ID() override { return asked("ID", &femap::LoadDefinition::ID); }
    int loadType() override { return asked("loadType", &femap::LoadDefinition::loadType); }
    int dataType() override { return asked("dataType", &femap::LoadDefinition::dataType); }
    void ResetNextLoad() override { told("ResetNextLoad").ResetNextLoad(); }
    std::unique_ptr<femap::MemberObject> NextLoad() override
    {
        auto load = told("NextLoad").NextLoad();
        return load == nullptr ? nullptr : watched<WatchedLoad>(std::move(load), "Load");
    }
};

class WatchedChanges : public Watched<femap::ModelChanges>
{
public:
    using Watched::Watched;

    void put(const femap::ModelValues& values) override { told("put").put(values); }
    femap::DialogSwitches dialogSwitches() override
    {
        return asked("dialogSwitches", &femap::ModelChanges::dialogSwitches);
    }
    void setDialogSwitches(const femap::DialogSwitches& switches) override
    {
        told("setDialogSwitches").setDialogSwitches(switches);
    }
    void feFileWriteNastran(femap::SolverBrand brand, const std::string& path) override
    {
        told("feFileWriteNastran", brand, path).feFileWriteNastran(brand, path);
    }
    void feFileReadNastranResults(femap::SolverBrand brand, const std::string& path) override
    {
        told("feFileReadNastranResults", brand, path).feFileReadNastranResults(brand, path);
    }
    void deleteOutputSets(const std::vector<int>& ids) override
    {
        told("deleteOutputSets").deleteOutputSets(ids);
    }
    void activateOutputSet(int id) override { told("activateOutputSet", id).activateOutputSet(id); }
};

class WatchedFemap : public Watched<femap::Application>
{
public:
    using Watched::Watched;

    double Info_Version() override
    {
        return asked("Info_Version", &femap::Application::Info_Version);
    }
    void feAppVisible(bool visible) override
    {
        told("feAppVisible", visible).feAppVisible(visible);
    }
    femap::ReturnCode feFileOpen(bool useDialog, const std::string& path) override
    {
        return asked("feFileOpen", &femap::Application::feFileOpen, useDialog, path);
    }
    std::string ModelName() override { return asked("ModelName", &femap::Application::ModelName); }
    int feAppGetAllModels() override
    {
        return asked("feAppGetAllModels", &femap::Application::feAppGetAllModels);
    }
    bool feFileIsModified() override
    {
        return asked("feFileIsModified", &femap::Application::feFileIsModified);
    }
    int Info_ActiveID(femap::EntityType type) override
    {
        return asked("Info_ActiveID", &femap::Application::Info_ActiveID, type);
    }
    void feAppLock() override { told("feAppLock").feAppLock(); }
    void feAppUnlock() override { told("feAppUnlock").feAppUnlock(); }
    void feAppMessage(femap::MessageColour colour, const std::string& text) override
    {
        told("feAppMessage", colour, text).feAppMessage(colour, text);
    }
    void feAppStatusShow(bool enable, int maximum) override
    {
        told("feAppStatusShow", enable, maximum).feAppStatusShow(enable, maximum);
    }
    void feAppStatusUpdate(int current) override
    {
        told("feAppStatusUpdate", current).feAppStatusUpdate(current);
    }
    int feAppRegisterAddInPane(const femap::AddInPane& pane) override
    {
        return asked("feAppRegisterAddInPane",
                     [&](femap::Application& real) { return real.feAppRegisterAddInPane(pane); });
    }
    std::unique_ptr<femap::EntitySet> feSet() override
    {
        return watched<WatchedSet>(told("feSet").feSet(), "Set");
    }
    std::unique_ptr<femap::Entity> entity(const std::string& word) override
    {
        return watched<WatchedEntity>(told("entity", word).entity(word), word);
    }
    std::unique_ptr<femap::OutputVector> feOutput() override
    {
        return watched<WatchedVector>(told("feOutput").feOutput(), "Output");
    }
    std::unique_ptr<femap::Function> feFunction() override
    {
        return watched<WatchedFunction>(told("feFunction").feFunction(), "Function");
    }
    std::unique_ptr<femap::ModelChanges> changes() override
    {
        return watched<WatchedChanges>(told("changes").changes(), "Changes");
    }
    std::unique_ptr<femap::LoadDefinition> feLoadDefinition() override
    {
        return watched<WatchedLoadDefinition>(told("feLoadDefinition").feLoadDefinition(),
                                              "LoadDefinition");
    }
    femap::MassProperties feMeasureMeshMassProp(int elementSet, int coordinateSystem,
                                                bool printResults, bool printDetails) override
    {
        return asked("feMeasureMeshMassProp", &femap::Application::feMeasureMeshMassProp,
                     elementSet, coordinateSystem, printResults, printDetails);
    }
};

/// A way to FEMAP that is watched too.
class WatchedConnector : public femap::Connector, public CallWatch
{
public:
    explicit WatchedConnector(femap::Connector& real) : real_(real) {}

    std::unique_ptr<femap::Application> attach() override
    {
        tell({"Connector", "attach", ""});
        return std::make_unique<WatchedFemap>(real_.attach(), *this);
    }
    std::unique_ptr<femap::Application> create() override
    {
        tell({"Connector", "create", ""});
        return std::make_unique<WatchedFemap>(real_.create(), *this);
    }

private:
    femap::Connector& real_;
};

}  // namespace fake
