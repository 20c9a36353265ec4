#include "AppHost.h"
#include "chords/ChordsViewController.h"

namespace uke {

// Actions of the chord screen. "didSelectRow" carries the row as its value and
// the picker's tag as its extra, as the picker delegate receives them.
void AppHost::chordsAction(const QString& name, const QVariant& value, const QVariant& extra) {
    ChordsViewController* open = app_->chords();
    if (!open)
        return;
    ChordsViewController& c = *open;
    if (name == QLatin1String("didSelectRow")) {
        bool rowOk = false, tagOk = false;
        const long row = static_cast<long>(value.toLongLong(&rowOk));
        const int64_t tag = extra.toLongLong(&tagOk);
        if (!rowOk || !tagOk) {
            ports_->log.log("didSelectRow needs a row and a picker tag");
            return;
        }
        c.didSelectRow(tag, row);
    } else if (name == QLatin1String("toggleSharpOfFlat")) {
        c.toggleSharpOfFlat();
    } else {
        ports_->log.log("Unknown chords action: " + name.toStdString());
        return;
    }
    sync();
}

} // namespace uke
