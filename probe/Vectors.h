// The output vectors of an output set, by each of FEMAP's ways to them.
#pragma once

#include "probe/Names.h"
#include "probe/Session.h"

#include <string>
#include <utility>
#include <vector>

namespace probe
{

/// Vectors as a list of FEMAP's gives them.
struct VectorList
{
    std::vector<int> ids;
    std::vector<std::string> titles;
};

/// What one way says of a vector.
struct VectorFacts
{
    bool isThere = false;
    std::string title;
    int location = 0;  // 7 nodes, 8 elements
    bool hasExtremes = false;
    double least = 0;
    double most = 0;
    std::string trouble;  // what failed
};

/// The older way: an output vector is an object.
VectorFacts factsByOutput(Session& session, const Object& output, int set, int vector);

/// A column of the results table, read whole.
struct Column
{
    VectorFacts facts;  // with the extremes as FEMAP tells them
    std::vector<int> ids;
    std::vector<double> values;
};

/// The results table; its members have names of their own in each generation.
class ResultsTable
{
public:
    ResultsTable(Session& session, const Object& application, Generation generation);

    bool isThere() const { return results_.isThere(); }
    const Object& object() const { return results_; }
    /// The name of a member in this generation.
    std::string named(const std::string& member) const;

    /// The vector as the only column; entities: the number of a set that the rows are limited to,
    /// 0: none.
    Column column(int set, int vector, int location, int entities);

private:
    void readExtremes(int index, VectorFacts& facts);

    Session& session_;
    Object results_;
    bool isModern_;
};

}  // namespace probe
