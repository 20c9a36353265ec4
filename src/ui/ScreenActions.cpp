#include "ScreenActions.h"

#include "AppHost.h"
#include "chords/ChordsViewController.h"

namespace uke {

ViewController& TunerActions::controller() { return host_.tunerController(); }

void TunerActions::sync() { host_.sync(); }

void TunerActions::didSelectRow(int row) {
    host_.app().selectLanguage(row);
    host_.sync();
}

void ChordActions::didSelectRow(int tag, int row) {
    if (ChordsViewController* open = host_.app().chords()) {
        open->didSelectRow(tag, row);
        host_.sync();
    }
}

void ChordActions::toggleSharpOfFlat() {
    if (ChordsViewController* open = host_.app().chords()) {
        open->toggleSharpOfFlat();
        host_.sync();
    }
}

} // namespace uke
