#include <QDesktopServices>
#include <QUrl>

#include "platform/qt/QtPorts.h"

namespace uke {

namespace {
class QtUrlOpener : public UrlOpener {
public:
    void openUrl(const std::string& url) override { QDesktopServices::openUrl(QUrl(QString::fromStdString(url))); }
};
} // namespace

std::unique_ptr<UrlOpener> makeQtUrlOpener() { return std::make_unique<QtUrlOpener>(); }

} // namespace uke
