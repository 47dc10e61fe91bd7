// Stands between the adapter and an object of FEMAP's, and writes down how its members are called.
#pragma once

#include "femap/TypeLibrary.h"

#include <windows.h>

#include <oleauto.h>
#include <string>
#include <vector>

namespace comtest
{

namespace library = femap::library;

/// A name that was looked up.
struct AskedName
{
    std::string interfaceName;
    std::string name;
    HRESULT answer;
    DISPID number;
};

/// A call that came, and what was returned.
struct MadeCall
{
    std::string interfaceName;
    std::string name;
    WORD flags;
    std::vector<VARTYPE> arguments;  // in calling order
    HRESULT answer;
    VARTYPE returned;
};

struct Record
{
    std::vector<AskedName> names;
    std::vector<MadeCall> calls;
};

class RecordingObject : public IDispatch
{
public:
    /// Takes over the reference.
    RecordingObject(Record& record, IDispatch* inner, const library::Interface& kind)
        : record_(record), inner_(inner), kind_(kind)
    {}
    virtual ~RecordingObject() { inner_->Release(); }
    RecordingObject(const RecordingObject&) = delete;
    RecordingObject& operator=(const RecordingObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* numbers) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID id, LCID locale, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                     UINT* wrongArgument) override;

private:
    void wrap(IDispatch*& object, const library::Interface& kind) const;
    const library::Interface& kindOfLoad() const;

    Record& record_;
    IDispatch* inner_;
    const library::Interface& kind_;
    ULONG references_ = 1;
};

}  // namespace comtest
