#include "platform/qt/QtPorts.h"

namespace uke {

namespace {
// A desktop has neither the platform's review request nor an in-app store sheet.
class NoStoreReview : public StoreReview {
public:
    bool reviewRequestAvailable() const override { return false; }
    void requestReview() override {}
    bool storeSheetAvailable() const override { return false; }
    void presentStoreSheet(const std::string&) override {}
};
} // namespace

std::unique_ptr<StoreReview> makeQtStoreReview() { return std::make_unique<NoStoreReview>(); }

} // namespace uke
