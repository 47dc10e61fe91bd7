#include "loop/connection/Connections.h"

#include "femap/SelectionDialogs.h"
#include "femap/embedded/Host.h"
#include "femap/embedded/NeutralPatch.h"

#include <memory>

namespace loop::connection
{

namespace
{

class NoDialogs : public femap::SelectionDialogs
{
public:
    femap::Selection answer(femap::EntityType /*type*/, const std::string& /*title*/,
                            bool /*onlyOne*/, const std::vector<int>& /*available*/) override
    {
        return {femap::ReturnCode::Cancel, {}};
    }
};

struct ModelHost
{
    NoDialogs dialogs;
    femap::embedded::Host host{dialogs};
};

std::vector<UnfitValue> patch(std::string_view text, const std::string& fileName,
                              const femap::ModelValues& values,
                              const std::function<void(std::string_view)>& write)
{
    std::vector<UnfitValue> unfit;
    for (const femap::embedded::PatchProblem& problem :
         femap::embedded::writePatched(text, fileName, values, write))
        unfit.push_back({problem.line, problem.what});
    return unfit;
}

}  // namespace

Connection toModelHost(std::ostream& said)
{
    const auto model = std::make_shared<ModelHost>();
    model->host.model.reset();  // nothing is open before the program opens it
    model->host.messageShown = [&said](const femap::embedded::Host::Message& message) {
        said << message.text << '\n';
    };
    return {{model, &model->host}, patch};
}

}  // namespace loop::connection
