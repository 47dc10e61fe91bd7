#pragma once

#include "fake/FormFixture.h"

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace generate
{

/// A path in the folder in which the tests' model lies.
std::string inWork(std::string_view fileName);

/// A form as it is when the engineer presses "Apply": a model named beam.neu in the work folder,
/// the solver "NXNastran", the tool "Velmar" and the command line of both.
class GenerateFixture : public fake::FormFixture
{
public:
    GenerateFixture();

    /// Appends a row; the first one takes the place of the blank row.
    void addInput(std::initializer_list<std::string_view> cells);
    void addOutput(std::initializer_list<std::string_view> cells);

    void addFunction(int id, const std::string& title, std::vector<double> x,
                     std::vector<double> y);

    /// A generated file's lines.
    std::vector<std::string> written(std::string_view fileName) const;
    bool exists(std::string_view fileName) const;
    /// The files in the work folder.
    std::vector<std::string> fileNames() const;
    /// The same with what they hold.
    std::map<std::string, std::string> workFolder() const;

    /// Runs a check before FEMAP gives the model's name; the check gets the number of the call,
    /// counted from 1.
    void beforeModelName(std::function<void(int call)> check);
};

}  // namespace generate
