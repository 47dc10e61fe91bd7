#pragma once

#include "fake/FormFixture.h"
#include "femap/ForwardingApplication.h"
#include "selection/LoadDefinitionInputs.h"
#include "system/RuntimeError.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace selection
{

/// A load with the members that a test gives it, by name and index (-1: none); others raise.
class ScriptedLoad : public femap::MemberObject
{
public:
    using Members = std::map<std::pair<std::string, int>, femap::Value>;

    explicit ScriptedLoad(Members members) : members_(std::move(members)) {}

    femap::Value member(const std::string& name) override { return member(name, -1); }
    femap::Value member(const std::string& name, int index) override
    {
        const auto place = members_.find({name, index});
        if (place == members_.end())
            throw sys::RuntimeError(sys::ErrorNumber::NoSuchMember, "There is no member " + name);
        return place->second;
    }

private:
    Members members_;
};

/// What a FEMAP with one load definition of ID 3 answers.
struct Script
{
    int loadType = 1;
    int dataType = 13;
    std::vector<ScriptedLoad::Members> loads;
    bool walkBreaksDown = false;  // after the last load
    femap::ReturnCode getCode = femap::ReturnCode::Ok;
};

class ScriptedDefinition : public femap::LoadDefinition
{
public:
    explicit ScriptedDefinition(const Script& script) : script_(script) {}

    femap::ReturnCode Get(int, int) override { return script_.getCode; }
    std::string title() override { return "Scripted"; }
    int setID() override { return 1; }
    int ID() override { return 3; }
    int loadType() override { return script_.loadType; }
    int dataType() override { return script_.dataType; }
    void ResetNextLoad() override { next_ = 0; }
    std::unique_ptr<femap::MemberObject> NextLoad() override
    {
        if (next_ < script_.loads.size())
            return std::make_unique<ScriptedLoad>(script_.loads[next_++]);
        if (script_.walkBreaksDown)
            throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed,
                                    "The walk over the loads broke down");
        return nullptr;
    }

private:
    const Script& script_;
    std::size_t next_ = 0;
};

class ScriptedFemap : public femap::ForwardingApplication
{
public:
    ScriptedFemap(std::unique_ptr<femap::Application> real, const Script& script)
        : ForwardingApplication(std::move(real)), script_(script)
    {}

    std::unique_ptr<femap::LoadDefinition> feLoadDefinition() override
    {
        return std::make_unique<ScriptedDefinition>(script_);
    }

private:
    const Script& script_;
};

class LoadDefinitionInputs : public testing::Test
{
protected:
    LoadDefinitionInputs() { addLoadSet(1); }

    femap::neutral::LoadSet& addLoadSet(int id)
    {
        femap::neutral::LoadSet set;
        set.id = id;
        return f.model().loadSets.put(set);
    }
    femap::neutral::LoadSet& loads() { return *f.model().loadSets.find(1); }
    void define(int id, const std::string& title, femap::LoadDataType dataType, int loadType)
    {
        loads().definitions.push_back({id, title, static_cast<int>(dataType), loadType});
    }
    void pick(const std::vector<int>& ids)
    {
        f.pick(ids);
        UpdateLoadDefinitionInputs(f.context);
    }
    /// Runs the procedure on a FEMAP that answers as the script says.
    void pickScripted()
    {
        define(3, "Scripted", femap::LoadDataType::Mesh, 1);
        f.context.application =
            std::make_unique<ScriptedFemap>(std::move(f.context.application), script);
        pick({3});
    }
    std::vector<std::string> rows() const { return f.rows(f.form.InputsList); }
    bool isUnlocked() const { return f.femap.lockCount == 0 && f.context.lockDepth == 0; }

    fake::FormFixture f;
    Script script;
};

}  // namespace selection
