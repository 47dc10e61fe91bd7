#include "femap/com/VectorEntities.h"

#include "femap/com/Codes.h"

#include <algorithm>

namespace femap::com
{

int VectorEntities::setOf(int outputSet, int vectorID)
{
    if (outputSet == outputSet_ && vectorID == vectorID_)
        return isTold_ ? femap_->setID : 0;
    outputSet_ = outputSet;
    vectorID_ = vectorID;
    isTold_ = false;
    isListed_ = false;
    try {
        if (femap_ == nullptr) {
            Dispatch set = context_.application.object("feSet");
            const int id = set.call("ID").number();
            femap_ = std::make_unique<Asked>(
                Asked{context_.application.object("feResults"), std::move(set), id});
        }
        const char* const member = context_.classic ? "VectorEntities" : "VectorEntitiesV2";
        isTold_ = code(femap_->results.call(member, outputSet, vectorID, femap_->setID, true)) ==
                  ReturnCode::Ok;
    }
    catch (const sys::RuntimeError&) {
        // FEMAP does not tell.
    }
    return isTold_ ? femap_->setID : 0;
}

bool VectorEntities::has(int outputSet, int vectorID, int entityID)
{
    if (vectorID == 0)
        return false;  // none is loaded
    if (setOf(outputSet, vectorID) == 0)
        return true;
    if (!isListed_) {
        isListed_ = true;
        try {
            ids_ = idsIn(femap_->set);
        }
        catch (const sys::RuntimeError&) {
            ids_.clear();
        }
        isTold_ = !ids_.empty();
    }
    return !isTold_ || std::binary_search(ids_.begin(), ids_.end(), entityID);
}

}  // namespace femap::com
