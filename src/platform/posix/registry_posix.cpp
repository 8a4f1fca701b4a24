#include "platform/platform.h"

namespace tamarind::platform {
namespace {

/// This system has no registry: nothing is ever found.
class NoRegistry final : public Registry {
public:
    std::optional<StoredValue> Read(RootKey, const std::string&, const std::string&) override { return std::nullopt; }
};

} // namespace

std::unique_ptr<Registry> MakeRegistry() { return std::make_unique<NoRegistry>(); }

} // namespace tamarind::platform
