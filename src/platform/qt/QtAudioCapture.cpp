#include "platform/qt/QtPorts.h"

namespace uke {

namespace {
class NoCapture : public AudioCapture {
public:
    bool newInput(const Format&, Callback) override { return false; }
    int allocateBuffer(uint32_t) override { return 0; }
    void enqueueBuffer(int) override {}
    void start() override {}
    void stop() override {}
    void dispose() override {}
    bool isRunning() const override { return false; }
    std::string lastError() const override { return "audio capture is not built in"; }
};
} // namespace

std::unique_ptr<AudioCapture> makeQtAudioCapture() { return std::make_unique<NoCapture>(); }

} // namespace uke
