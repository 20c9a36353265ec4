#include <QDesktopServices>
#include <QUrl>

#include "platform/qt/QtPorts.h"

namespace uke {

namespace {
class QtUrlOpener : public UrlOpener {
public:
    void openUrl(const std::string& url) override {
        QUrl target(QString::fromStdString(url));
        if (QDesktopServices::openUrl(target))
            return;
        // A desktop has no handler for the store app's scheme: the same page over
        // https opens in the browser instead of doing nothing.
        if (target.scheme() == QLatin1String("itms-apps")) {
            target.setScheme(QStringLiteral("https"));
            QDesktopServices::openUrl(target);
        }
    }
};
} // namespace

std::unique_ptr<UrlOpener> makeQtUrlOpener() { return std::make_unique<QtUrlOpener>(); }

} // namespace uke
