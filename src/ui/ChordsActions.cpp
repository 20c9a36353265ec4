#include "AppHost.h"
#include "chords/ChordsViewController.h"

namespace uke {

void AppHost::chordsAction(const QString& name, const QVariant& value, const QVariant& extra) {
    if (!chordsController_)
        return;
    (void)value;
    (void)extra;
    log_.log("Unknown chords action: " + name.toStdString());
    sync();
}

} // namespace uke
