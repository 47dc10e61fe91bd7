#include "windows/ServerCodes.h"

#include <algorithm>
#include <iterator>

namespace windows
{

namespace
{

constexpr HRESULT goneResults[] = {
    HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE),
    HRESULT_FROM_WIN32(RPC_S_CALL_FAILED),
    HRESULT_FROM_WIN32(RPC_S_CALL_FAILED_DNE),
    RPC_E_DISCONNECTED,
    RPC_E_SERVER_DIED,
    RPC_E_SERVER_DIED_DNE,
    RPC_E_CONNECTION_TERMINATED,
    CO_E_OBJNOTCONNECTED,
};

}  // namespace

bool meansServerGone(HRESULT result)
{
    return std::ranges::find(goneResults, result) != std::end(goneResults);
}

}  // namespace windows
