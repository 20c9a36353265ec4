#pragma once
#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "tuner/ViewController.h"

namespace uke {

class AppHost;

// The tuner screen's actions as the views call them, one typed method per action
// under the controller's own name. Each forwards to the core and then shows the
// views what changed; none decides anything itself.
class TunerActions : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The host makes the tuner's actions")
public:
    explicit TunerActions(AppHost& host) : host_(host) {}

    // The one list of the tuner's actions (moc cannot read methods a macro makes).
    Q_INVOKABLE void showNextTuning() { run(&ViewController::showNextTuning); }
    Q_INVOKABLE void showPreviousTuning() { run(&ViewController::showPreviousTuning); }
    Q_INVOKABLE void playA440Hz() { run(&ViewController::playA440Hz); }
    Q_INVOKABLE void playE329_6() { run(&ViewController::playE329_6); }
    Q_INVOKABLE void playC261_6Hz() { run(&ViewController::playC261_6Hz); }
    Q_INVOKABLE void playG392Hz() { run(&ViewController::playG392Hz); }
    Q_INVOKABLE void stopFreqPlay() { run(&ViewController::stopFreqPlay); }
    Q_INVOKABLE void play1stStringSound() { run(&ViewController::play1stStringSound); }
    Q_INVOKABLE void play2ndStringSound() { run(&ViewController::play2ndStringSound); }
    Q_INVOKABLE void play3rdStringSound() { run(&ViewController::play3rdStringSound); }
    Q_INVOKABLE void play4thStringSound() { run(&ViewController::play4thStringSound); }
    Q_INVOKABLE void micSensitivity(float value) { run(&ViewController::micSensitivity, value); }
    Q_INVOKABLE void setFrequencyValue(double value) { run(&ViewController::setFrequencyValue, value); }
    Q_INVOKABLE void soundNotificationAction(bool on) { run(&ViewController::soundNotificationAction, on); }
    Q_INVOKABLE void toggleStringSounds(bool on) { run(&ViewController::toggleStringSounds, on); }
    Q_INVOKABLE void toggleFreqChart(bool on) { run(&ViewController::toggleFreqChart, on); }
    Q_INVOKABLE void reviewQuenby() { run(&ViewController::reviewQuenby); }
    Q_INVOKABLE void redirectToMorvaneLabs() { run(&ViewController::redirectToMorvaneLabs); }
    Q_INVOKABLE void disableTemporarilySoundConfirmation() {
        run(&ViewController::disableTemporarilySoundConfirmation);
    }
    Q_INVOKABLE void enableSoundConfirmation() { run(&ViewController::enableSoundConfirmation); }
    // The naming picker: the core stores the row, then applies it.
    Q_INVOKABLE void didSelectRow(int row);

private:
    template <class... Params, class... Args> void run(void (ViewController::*action)(Params...), Args... args) {
        (controller().*action)(args...);
        sync();
    }
    ViewController& controller();
    void sync();

    AppHost& host_;
};

// The chord screen's actions; while the screen is closed they do nothing.
class ChordActions : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The host makes the chord screen's actions")
public:
    explicit ChordActions(AppHost& host) : host_(host) {}

    // A picker settled on `row`; `tag` says which picker.
    Q_INVOKABLE void didSelectRow(int tag, int row);
    Q_INVOKABLE void toggleSharpOfFlat();

private:
    AppHost& host_;
};

} // namespace uke
