#include "generate/ModelName.h"

#include "generate/ModelPath.h"
#include "system/RuntimeError.h"

namespace generate
{

void demandNameInCodePage(const sys::CodePage& codePage, const std::string& modelFile)
{
    const std::string name = modelFile.substr(modelFolder(modelFile).size());
    std::string ignored;
    if (!codePage.encode(name, ignored))
        throw sys::RuntimeError(sys::ErrorNumber::InvalidCall,
                                "This machine's code page lacks a character of the model's name. "
                                "Save the model under a name without it and try again: " +
                                    name);
}

}  // namespace generate
