// The objects that the model host hands out: sets, entities, output vectors and functions.
#pragma once

#include "femap/Objects.h"
#include "femap/neutral/Model.h"

#include <memory>
#include <string>
#include <vector>

namespace femap::embedded
{

class Host;

/// A set of IDs. The host finds it by its own ID for as long as it lives.
class HostSet : public EntitySet
{
public:
    explicit HostSet(Host& host);
    ~HostSet() override;
    HostSet(const HostSet&) = delete;
    HostSet& operator=(const HostSet&) = delete;

    int ID() override { return id_; }
    int count() override { return static_cast<int>(ids_.size()); }
    void Reset() override;
    int Next() override;
    std::vector<int> ids() override { return ids_; }
    ReturnCode AddAll(EntityType type) override;
    ReturnCode Copy(int setID) override;
    ReturnCode Select(EntityType type, bool clear, const std::string& title) override;
    ReturnCode SelectMultiID(EntityType type, int ownerSet, const std::string& title) override;

    /// Adds ascending IDs, perhaps with duplicates. The walk goes on after the ID it reached.
    void add(const std::vector<int>& ids);
    void clear();

private:
    ReturnCode ask(EntityType type, const std::string& title, const std::vector<int>& available);

    Host& host_;
    int id_;
    std::vector<int> ids_;
    int current_ = 0;  // the ID that Next returned last; 0 before the first one
    bool ended_ = false;
    std::size_t next_ = 0;  // index in ids_ of the ID that Next returns
};

/// An output vector. It keeps only which vector was loaded and finds that vector in the model at
/// each question: a vector may hold a value for each of a million nodes, too many to copy at each
/// Get.
class HostOutputVector : public femap::OutputVector
{
public:
    explicit HostOutputVector(Host& host) : host_(host) {}

    ReturnCode Get(int vectorID) override;
    int ID() override { return loaded().id; }
    std::string Title() override;
    // A neutral file has the numbering of the FEMAP that wrote it, here one before 2020.1.
    int classicID() override { return loaded().id; }
    double Value(int entityID) override;
    double maxval() override { return loaded().maxval; }
    double minval() override { return loaded().minval; }
    femap::Value member(const std::string& name) override;
    femap::Value member(const std::string& name, int index) override;

    /// As Get, from any output set.
    ReturnCode GetFromSet(int setID, int vectorID);
    /// The vector in the model; an empty one before the first Get. Raises when it is gone.
    const neutral::OutputVector& loaded() const;

private:
    Host& host_;
    int setID_ = 0;
    int vectorID_ = 0;
};

/// A copy of one function.
class HostFunction : public femap::Function
{
public:
    explicit HostFunction(Host& host) : host_(host) {}

    ReturnCode SelectID(const std::string& title) override;
    ReturnCode Get(int id) override;
    int ID() override { return data_.id; }
    std::string title() override;
    FunctionPoints GetFunctionList() override { return {data_.x, data_.y}; }

    /// Changes the copy; nothing reaches the model. Fails when there is not a y for each x.
    ReturnCode PutFunctionList(FunctionPoints points);
    /// Stores the copy in the model, under its own ID for 0.
    ReturnCode Put(int id);
    neutral::Function& data() { return data_; }

private:
    Host& host_;
    neutral::Function data_;
};

/// An entity object of the model host's; raises for a word that names none.
std::unique_ptr<Entity> makeEntity(Host& host, const std::string& word);

}  // namespace femap::embedded
