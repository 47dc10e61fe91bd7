#include "femap/embedded/HostEntity.h"

#include "femap/embedded/HostObjects.h"

namespace femap::embedded
{

std::unique_ptr<Entity> makeEntity(Host& host, const std::string& word)
{
    return withKind(word, [&]<class Data>(Kind<Data>) -> std::unique_ptr<Entity> {
        return std::make_unique<HostEntity<Data>>(host);
    });
}

}  // namespace femap::embedded
