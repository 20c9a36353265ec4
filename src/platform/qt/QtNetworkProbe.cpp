#include "platform/qt/QtPorts.h"

namespace uke {

namespace {
class NoNetwork : public NetworkProbe {
public:
    std::optional<Flags> reachabilityFlags() override { return std::nullopt; }
    bool startFetch(const std::string&, double) override { return false; }
};
} // namespace

std::unique_ptr<NetworkProbe> makeQtNetworkProbe() { return std::make_unique<NoNetwork>(); }

} // namespace uke
