// RecordedConnector: tells the recorder what is selected in FEMAP's dialogs.
#include "femap/ForwardingApplication.h"
#include "study/Recorder.h"

#include <utility>

namespace study
{

using femap::Application;
using femap::EntitySet;
using femap::EntityType;
using femap::ReturnCode;

namespace
{

class RecordedSet : public EntitySet
{
public:
    RecordedSet(std::unique_ptr<EntitySet> real, Recorder& recorder)
        : real_(std::move(real)), recorder_(recorder)
    {}

    int ID() override { return real_->ID(); }
    int count() override { return real_->count(); }
    void Reset() override { real_->Reset(); }
    int Next() override { return real_->Next(); }
    std::vector<int> ids() override { return real_->ids(); }
    ReturnCode AddAll(EntityType type) override { return real_->AddAll(type); }
    ReturnCode Copy(int setID) override { return real_->Copy(setID); }
    ReturnCode Select(EntityType type, bool clear, const std::string& title) override
    {
        return recorded(real_->Select(type, clear, title));
    }
    ReturnCode SelectMultiID(EntityType type, int ownerSet, const std::string& title) override
    {
        return recorded(real_->SelectMultiID(type, ownerSet, title));
    }

private:
    ReturnCode recorded(ReturnCode code)
    {
        recorder_.picked(code, code == ReturnCode::Ok ? real_->ids() : std::vector<int>());
        return code;
    }

    std::unique_ptr<EntitySet> real_;
    Recorder& recorder_;
};

class RecordedFunction : public femap::Function
{
public:
    RecordedFunction(std::unique_ptr<femap::Function> real, Recorder& recorder)
        : real_(std::move(real)), recorder_(recorder)
    {}

    ReturnCode SelectID(const std::string& title) override
    {
        const ReturnCode code = real_->SelectID(title);
        recorder_.picked(code,
                         code == ReturnCode::Ok ? std::vector{real_->ID()} : std::vector<int>());
        return code;
    }
    ReturnCode Get(int id) override { return real_->Get(id); }
    int ID() override { return real_->ID(); }
    std::string title() override { return real_->title(); }
    femap::FunctionPoints GetFunctionList() override { return real_->GetFunctionList(); }

private:
    std::unique_ptr<femap::Function> real_;
    Recorder& recorder_;
};

class RecordedFemap : public femap::ForwardingApplication
{
public:
    RecordedFemap(std::unique_ptr<Application> real, Recorder& recorder)
        : ForwardingApplication(std::move(real)), recorder_(recorder)
    {}

    std::unique_ptr<EntitySet> feSet() override
    {
        return std::make_unique<RecordedSet>(ForwardingApplication::feSet(), recorder_);
    }
    std::unique_ptr<femap::Function> feFunction() override
    {
        return std::make_unique<RecordedFunction>(ForwardingApplication::feFunction(), recorder_);
    }

private:
    Recorder& recorder_;
};

std::unique_ptr<Application> recorded(std::unique_ptr<Application> real, Recorder& recorder)
{
    if (real == nullptr)
        return nullptr;
    return std::make_unique<RecordedFemap>(std::move(real), recorder);
}

}  // namespace

std::unique_ptr<Application> RecordedConnector::attach()
{
    return recorded(real_.attach(), recorder_);
}

std::unique_ptr<Application> RecordedConnector::create()
{
    return recorded(real_.create(), recorder_);
}

}  // namespace study
