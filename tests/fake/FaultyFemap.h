#pragma once

#include "femap/Application.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace fake
{

/// What every object of a FaultyConnector shares.
struct CallWatch
{
    /// Told the name of each call before it is made; raises to let it fail.
    std::function<void(const std::string& call)> beforeCall = [](const std::string&) {};
    /// Objects of FEMAP that are held now.
    int objects = 0;
};

/// An object of FEMAP that tells the watch of itself and of the calls made to it.
template <class Interface>
class Watched : public Interface
{
public:
    Watched(std::unique_ptr<Interface> real, CallWatch& watch)
        : real_(std::move(real)), watch_(watch)
    {
        ++watch_.objects;
    }
    ~Watched() override { --watch_.objects; }
    Watched(const Watched&) = delete;
    Watched& operator=(const Watched&) = delete;

protected:
    Interface& told(const char* call)
    {
        watch_.beforeCall(call);
        return *real_;
    }
    /// One that the object hands out.
    template <class Other, class Real>
    std::unique_ptr<Other> watched(std::unique_ptr<Real> real)
    {
        return std::make_unique<Other>(std::move(real), watch_);
    }

private:
    std::unique_ptr<Interface> real_;
    CallWatch& watch_;
};

/// What is read by name.
template <class Interface>
class WatchedMembers : public Watched<Interface>
{
public:
    using Watched<Interface>::Watched;

    femap::Value member(const std::string& name) override
    {
        return this->told("member").member(name);
    }
    femap::Value member(const std::string& name, int index) override
    {
        return this->told("member").member(name, index);
    }
};

class WatchedEntity : public WatchedMembers<femap::Entity>
{
public:
    using WatchedMembers::WatchedMembers;

    femap::ReturnCode Get(int id) override { return told("Get").Get(id); }
    int Type() override { return told("Type").Type(); }
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

    int ID() override { return told("ID").ID(); }
    int count() override { return told("count").count(); }
    void Reset() override { told("Reset").Reset(); }
    int Next() override { return told("Next").Next(); }
    std::vector<int> ids() override { return told("ids").ids(); }
    femap::ReturnCode AddAll(femap::EntityType type) override
    {
        return told("AddAll").AddAll(type);
    }
    femap::ReturnCode Copy(int setID) override { return told("Copy").Copy(setID); }
    femap::ReturnCode Select(femap::EntityType type, bool clear, const std::string& title) override
    {
        return told("Select").Select(type, clear, title);
    }
    femap::ReturnCode SelectMultiID(femap::EntityType type, int ownerSet,
                                    const std::string& title) override
    {
        return told("SelectMultiID").SelectMultiID(type, ownerSet, title);
    }
};

class WatchedVector : public WatchedMembers<femap::OutputVector>
{
public:
    using WatchedMembers::WatchedMembers;

    femap::ReturnCode Get(int vectorID) override { return told("Get").Get(vectorID); }
    int ID() override { return told("ID").ID(); }
    std::string Title() override { return told("Title").Title(); }
    int classicID() override { return told("classicID").classicID(); }
    double Value(int entityID) override { return told("Value").Value(entityID); }
    double maxval() override { return told("maxval").maxval(); }
    double minval() override { return told("minval").minval(); }
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
        return told("SelectID").SelectID(title);
    }
    femap::ReturnCode Get(int id) override { return told("Get").Get(id); }
    int ID() override { return told("ID").ID(); }
    std::string title() override { return told("title").title(); }
    femap::FunctionPoints GetFunctionList() override
    {
        return told("GetFunctionList").GetFunctionList();
    }
};

using WatchedLoad = WatchedMembers<femap::MemberObject>;

class WatchedLoadDefinition : public Watched<femap::LoadDefinition>
{
public:
    using Watched::Watched;

    femap::ReturnCode Get(int loadSet, int id) override { return told("Get").Get(loadSet, id); }
    std::string title() override { return told("title").title(); }
    int setID() override { return told("setID").setID(); }
    int ID() override { return told("ID").ID(); }
    int loadType() override { return told("loadType").loadType(); }
    int dataType() override { return told("dataType").dataType(); }
    void ResetNextLoad() override { told("ResetNextLoad").ResetNextLoad(); }
    std::unique_ptr<femap::MemberObject> NextLoad() override
    {
        auto load = told("NextLoad").NextLoad();
        return load == nullptr ? nullptr : watched<WatchedLoad>(std::move(load));
    }
};

/// FEMAP, told of each call. Opening a file only says that it worked: the model is there already.
class WatchedFemap : public Watched<femap::Application>
{
public:
    using Watched::Watched;

    void feAppVisible(bool visible) override { told("feAppVisible").feAppVisible(visible); }
    femap::ReturnCode feFileOpen(bool /*useDialog*/, const std::string& /*path*/) override
    {
        told("feFileOpen");
        return femap::ReturnCode::Ok;
    }
    std::string ModelName() override { return told("ModelName").ModelName(); }
    int feAppGetAllModels() override { return told("feAppGetAllModels").feAppGetAllModels(); }
    int Info_ActiveID(femap::EntityType type) override
    {
        return told("Info_ActiveID").Info_ActiveID(type);
    }
    void feAppLock() override { told("feAppLock").feAppLock(); }
    void feAppUnlock() override { told("feAppUnlock").feAppUnlock(); }
    void feAppMessage(femap::MessageColour colour, const std::string& text) override
    {
        told("feAppMessage").feAppMessage(colour, text);
    }
    void feAppStatusShow(bool enable, int maximum) override
    {
        told("feAppStatusShow").feAppStatusShow(enable, maximum);
    }
    void feAppStatusUpdate(int current) override
    {
        told("feAppStatusUpdate").feAppStatusUpdate(current);
    }
    int feAppRegisterAddInPane(const femap::AddInPane& pane) override
    {
        return told("feAppRegisterAddInPane").feAppRegisterAddInPane(pane);
    }
    std::unique_ptr<femap::EntitySet> feSet() override
    {
        return watched<WatchedSet>(told("feSet").feSet());
    }
    std::unique_ptr<femap::Entity> entity(const std::string& word) override
    {
        return watched<WatchedEntity>(told("entity").entity(word));
    }
    std::unique_ptr<femap::OutputVector> feOutput() override
    {
        return watched<WatchedVector>(told("feOutput").feOutput());
    }
    std::unique_ptr<femap::Function> feFunction() override
    {
        return watched<WatchedFunction>(told("feFunction").feFunction());
    }
    std::unique_ptr<femap::LoadDefinition> feLoadDefinition() override
    {
        return watched<WatchedLoadDefinition>(told("feLoadDefinition").feLoadDefinition());
    }
    femap::MassProperties feMeasureMeshMassProp(int elementSet, int coordinateSystem,
                                                bool printResults, bool printDetails) override
    {
        return told("feMeasureMeshMassProp")
            .feMeasureMeshMassProp(elementSet, coordinateSystem, printResults, printDetails);
    }
};

/// A way to a FEMAP every call of which, to whatever object, can be made to fail.
class FaultyConnector : public femap::Connector, public CallWatch
{
public:
    explicit FaultyConnector(femap::Connector& real) : real_(real) {}

    std::unique_ptr<femap::Application> attach() override
    {
        beforeCall("attach");
        return std::make_unique<WatchedFemap>(real_.attach(), *this);
    }
    std::unique_ptr<femap::Application> create() override
    {
        beforeCall("create");
        return std::make_unique<WatchedFemap>(real_.create(), *this);
    }

private:
    femap::Connector& real_;
};

}  // namespace fake
