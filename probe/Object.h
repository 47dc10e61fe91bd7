// Calls members of FEMAP's objects through plain IDispatch and keeps all that came of it: HRESULT,
// FEMAP's own words, the types that came back, how long it took. It shares no code with the tool's
// own way to FEMAP, so that a mistake there does not repeat itself here.
#pragma once

#include "probe/DialogWatch.h"
#include "probe/Value.h"

#include <windows.h>

#include <cstddef>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <oleauto.h>
#include <optional>
#include <string>
#include <vector>

namespace probe
{

/// FEMAP has ended or cannot be reached: nothing more can be asked.
class FemapGone : public std::exception
{
public:
    explicit FemapGone(std::string what) : what_(std::move(what)) {}

    const char* what() const noexcept override { return what_.c_str(); }

private:
    std::string what_;
};

/// One argument of a call: a value that goes in, or a variable that FEMAP fills.
class Argument
{
public:
    Argument(int number);
    Argument(double number);
    Argument(bool flag);
    Argument(const std::string& text);
    Argument(const char* text) : Argument(std::string(text)) {}
    Argument(const std::vector<int>& numbers);
    Argument(const std::vector<double>& numbers);
    static Argument longNumber(long long number);
    /// A variable of that type, passed by reference.
    static Argument out(VARTYPE type);

    const VARIANT& raw() const { return value_.raw(); }
    bool isOut() const { return filled_ != nullptr; }
    /// What the variable holds now; null for an argument that goes in.
    Value takeFilled();
    /// As the report names the argument.
    std::string shown() const;

private:
    Argument() = default;

    Value value_;
    std::unique_ptr<Value> filled_;
};

/// The list of arguments, in calling order.
template <class... Each>
std::vector<Argument> list(Each&&... each)
{
    std::vector<Argument> arguments;
    (arguments.emplace_back(std::forward<Each>(each)), ...);
    return arguments;
}

/// What came of a call.
struct Answer
{
    HRESULT result = S_OK;
    std::string reason;         // in FEMAP's words; empty: it gave none
    Value value;                // what it returned
    std::vector<Value> filled;  // the variables that it filled, in calling order
    double milliseconds = 0;
    int rejected = 0;                  // so often FEMAP was too busy for the call
    std::vector<std::string> windows;  // that FEMAP showed meanwhile

    bool isDone() const { return SUCCEEDED(result); }
    /// The status that most methods return; it says that all went well.
    bool isOk() const { return isDone() && value.number() == -1; }
};

/// What all objects of one FEMAP share.
class Connection
{
public:
    explicit Connection(std::function<double()> seconds) : seconds_(std::move(seconds)) {}

    DialogWatch watch;

    /// Makes a call, again while FEMAP is busy, and fills in the result and the time. Raises
    /// FemapGone.
    void make(Answer& answer, const std::function<HRESULT()>& call);

private:
    std::function<double()> seconds_;
};

/// One object of FEMAP's.
class Object
{
public:
    /// Takes over the reference. name: as the report calls the object.
    Object(Connection& connection, IDispatch* object, std::string name);
    Object(Object&& other) noexcept;
    Object& operator=(Object&& other) noexcept;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    ~Object();

    const std::string& name() const { return name_; }
    bool isThere() const { return object_ != nullptr; }
    IDispatch* raw() const { return object_; }
    Connection& connection() const { return connection_; }

    /// The number of a member. The answer's result is DISP_E_UNKNOWNNAME where there is none.
    Answer look(const std::string& member, DISPID& number) const;
    bool has(const std::string& member) const;

    /// Calls a method or reads a property, whichever it is.
    Answer call(const std::string& member, std::vector<Argument> arguments = {}) const;
    /// Writes a property; the value is the last argument.
    Answer put(const std::string& member, std::vector<Argument> arguments) const;
    /// The object that a property returns; one that is not there when it returns none.
    Object object(const std::string& member) const;

private:
    Answer invoke(const std::string& member, WORD flags, std::vector<Argument>& arguments) const;

    std::reference_wrapper<Connection> connection_;
    IDispatch* object_;
    std::string name_;
    mutable std::map<std::string, DISPID> numbers_;
};

/// "0x80020006: Unknown name. (FEMAP: …)", or the status that was returned.
std::string reasonOf(const Answer& answer);

}  // namespace probe
