// Calls members of FEMAP's objects by name, through COM's IDispatch.
#pragma once

#include "femap/com/RetryPolicy.h"
#include "femap/com/Variant.h"

#include <windows.h>

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <oleauto.h>
#include <optional>
#include <span>
#include <string>
#include <utility>

namespace femap::com
{

/// Lets the process bring its windows to the front of ours; a refusal is ignored.
void letToFront(DWORD process);

/// What all objects of one running FEMAP share: whether it still runs, the retry policy while it is
/// busy, and the numbers of its members' names. To look up a name is a call to FEMAP, so each name
/// is looked up once for each kind of object.
class Connection
{
public:
    /// The retry policy may be shared with others. Takes over the reference to FEMAP's application,
    /// where others are to get it from here.
    explicit Connection(std::shared_ptr<RetryPolicy> retryPolicy, IDispatch* application = nullptr)
        : retryPolicy_(std::move(retryPolicy)), application_(application)
    {}
    ~Connection()
    {
        if (application_ != nullptr)
            application_->Release();
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// One more reference to it.
    IDispatch* application() const
    {
        application_->AddRef();
        return application_;
    }

    /// Makes a call, and makes it again while FEMAP is busy. Returns its result. Raises
    /// ConnectionLost when this call or an earlier one found FEMAP gone.
    template <class Call>
    HRESULT make(RetryPolicy::CallName name, const Call& call)
    {
        demandAlive();
        const HRESULT result = retryPolicy_->whileBusy(name, call);
        learn(result);
        return result;
    }

    /// Whether FEMAP is one before 2020.1; asked once.
    std::optional<bool> isClassic;

    /// False after a call found FEMAP gone.
    bool isAlive() const { return alive_; }
    std::map<std::string, std::optional<DISPID>>& names(const std::string& kind)
    {
        return names_[kind];
    }

    /// FEMAP's main window, null when FEMAP does not tell it; asked once.
    std::optional<HWND> mainWindow;
    /// Lets FEMAP's process bring a dialog to the front.
    std::function<void(DWORD process)> letToFront = com::letToFront;

    /// How many places arrays have, by kind of object and member; none where FEMAP does not tell.
    std::map<std::pair<std::string, std::string>, std::optional<std::size_t>> places;

private:
    void demandAlive() const;
    void learn(HRESULT result);

    std::shared_ptr<RetryPolicy> retryPolicy_;
    IDispatch* application_;
    bool alive_ = true;
    std::map<std::string, std::map<std::string, std::optional<DISPID>>> names_;
};

/// Owns one reference to an object of FEMAP's and calls its members by name. Every failing call
/// raises RuntimeError with the member's name and FEMAP's reason; a call that finds FEMAP gone
/// raises ConnectionLost, and none is made after it.
class Dispatch
{
public:
    /// Takes over the reference. Objects of one kind have the same members.
    Dispatch(IDispatch* object, std::string kind, std::shared_ptr<Connection> connection);
    Dispatch(Dispatch&& other) noexcept;
    Dispatch& operator=(Dispatch&&) = delete;
    Dispatch(const Dispatch&) = delete;
    Dispatch& operator=(const Dispatch&) = delete;
    ~Dispatch();

    /// Whether objects of this kind have a member of that name. Raises when FEMAP is too busy to
    /// say.
    bool has(const std::string& name);
    /// The same of this very object, whose kind is not known yet.
    bool shows(const std::string& name);
    const std::string& kind() const { return kind_; }
    /// The object as one of a kind.
    Dispatch as(std::string kind) &&;

    /// Calls a method or reads a property; it does not matter which of the two it is.
    template <class... Arguments>
    Variant call(const std::string& name, Arguments&&... arguments)
    {
        std::array<Variant, sizeof...(Arguments)> list = {
            Variant(std::forward<Arguments>(arguments))...};
        return invoke(name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, list.data(), list.size());
    }

    /// The same with a list of arguments.
    Variant callWith(const std::string& name, std::span<Variant> arguments)
    {
        return invoke(name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments.data(),
                      arguments.size());
    }

    /// How many places the array has that a member gives as a whole; none when it gives none. Asked
    /// once for each kind of object.
    std::optional<std::size_t> placesIn(const std::string& member);

    /// Writes a property; indices stand before the value.
    template <class... Arguments>
    void put(const std::string& name, Arguments&&... arguments)
    {
        std::array<Variant, sizeof...(Arguments)> list = {
            Variant(std::forward<Arguments>(arguments))...};
        invoke(name, DISPATCH_PROPERTYPUT, list.data(), list.size());
    }

    /// Calls a member by which FEMAP shows a dialog, until the engineer has closed that. Lets
    /// FEMAP's process bring it to the front.
    template <class... Arguments>
    Variant callDialog(DWORD process, const std::string& name, Arguments&&... arguments)
    {
        std::array<Variant, sizeof...(Arguments)> list = {
            Variant(std::forward<Arguments>(arguments))...};
        connection_->letToFront(process);
        return invoke(name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, list.data(), list.size(), true);
    }

    /// The object that a property of this one returns.
    Dispatch object(const std::string& name);
    /// Wraps an object that a call of this one returned.
    Dispatch adopt(IDispatch* object, const std::string& kind) const;

    Connection& connection() const { return *connection_; }

private:
    HRESULT lookUp(const std::string& name, DISPID& number);
    std::optional<DISPID> find(const std::string& name);
    Variant invoke(const std::string& name, WORD flags, Variant* arguments, std::size_t count,
                   bool showsDialog = false);

    IDispatch* object_;
    std::string kind_;
    std::shared_ptr<Connection> connection_;
};

}  // namespace femap::com
