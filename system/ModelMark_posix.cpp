// ModelMark.h elsewhere than on Windows, where there is no form.
#include "system/ModelMark.h"

namespace sys
{

std::unique_ptr<ModelMark> markModel(const std::string& /*path*/)
{
    return nullptr;
}

}  // namespace sys
