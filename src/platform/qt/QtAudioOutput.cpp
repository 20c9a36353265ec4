#include "platform/qt/QtPorts.h"

namespace uke {

namespace {
class NoOutput : public AudioOutput {
public:
    void setup(RenderCallback) override {}
    void start() override {}
    void stop() override {}
};
} // namespace

std::unique_ptr<AudioOutput> makeQtAudioOutput() { return std::make_unique<NoOutput>(); }

} // namespace uke
