<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>Localizable</name>
    <message>
        <source>TuningFreeTitle1</source>
        <translation>Standard  G C E A</translation>
    </message>
    <message>
        <source>TuningFreeTitle2</source>
        <translation>Low G  G C E A</translation>
    </message>
    <message>
        <source>TuningFreeTitle3</source>
        <translation>D tuning  A D F# B</translation>
    </message>
    <message>
        <source>TuningFreeTitle4</source>
        <translation>Low A  A D F# B</translation>
    </message>
    <message>
        <source>TuningFreeTitle5</source>
        <translation>Baritone  D G B E</translation>
    </message>
    <message>
        <source>TuningFreeTitle6</source>
        <translation>Slack Ab  F# B D# G#</translation>
    </message>
    <message>
        <source>TuningFreeTitle7</source>
        <translation>Bb tuning  F A# D G</translation>
    </message>
    <message>
        <source>TuningFreeTitle8</source>
        <translation>B tuning  G# C# F A#</translation>
    </message>
    <message>
        <source>TuningFreeTitle9</source>
        <translation>Canadian D  A D F# B</translation>
    </message>
    <message>
        <source>TuningFreeTitle10</source>
        <translation>Open C  G C E G</translation>
    </message>
    <message>
        <source>TuningFreeTitle11</source>
        <translation>Open G  D G B D</translation>
    </message>
    <message>
        <source>TunerAboutCongratsMessage</source>
        <translation>Thanks for tuning with us! Pluck one string at a time and hold the instrument close: the lamp turns green when the string is in tune.</translation>
    </message>
    <message>
        <source>TunerAboutMsg2</source>
        <translation>Made with care for ukulele players. If the tuner helps you, a rating helps us keep improving it.</translation>
    </message>
    <message>
        <source>MicSensitivityTitle</source>
        <translation>Microphone sensitivity</translation>
    </message>
    <message>
        <source>SoundNotificationTitle</source>
        <translation>Beep when in tune</translation>
    </message>
    <message>
        <source>StringSoundsTitle</source>
        <translation>Recorded string sounds</translation>
    </message>
    <message>
        <source>FrequencyChartTitle</source>
        <translation>Frequency chart</translation>
    </message>
    <message>
        <source>CalibrationTitle</source>
        <translation>Calibration A4 =</translation>
    </message>
    <message>
        <source>HzTitle</source>
        <translation>Hz</translation>
    </message>
    <message>
        <source>Lang0</source>
        <translation>Device language</translation>
    </message>
    <message>
        <source>Lang1</source>
        <translation>Letters (C D E)</translation>
    </message>
    <message>
        <source>Lang2</source>
        <translation>Solfège (Do Re Mi)</translation>
    </message>
    <message>
        <source>Lang3</source>
        <translation>Solfège (Do Ré Mi)</translation>
    </message>
    <message>
        <source>Lang4</source>
        <translation>German (C D E H)</translation>
    </message>
    <message>
        <source>Lang5</source>
        <translation>Cyrillic (До Ре Ми)</translation>
    </message>
    <message>
        <source>ANoteM</source>
        <translation>A%@</translation>
    </message>
    <message>
        <source>BNoteM</source>
        <translation>B%@</translation>
    </message>
    <message>
        <source>CNoteM</source>
        <translation>C%@</translation>
    </message>
    <message>
        <source>DNoteM</source>
        <translation>D%@</translation>
    </message>
    <message>
        <source>ENoteM</source>
        <translation>E%@</translation>
    </message>
    <message>
        <source>GNoteM</source>
        <translation>G%@</translation>
    </message>
    <message>
        <source>ChordsTitleGlobal</source>
        <translation>Chord library</translation>
    </message>
    <message>
        <source>ChordsTitleSCT</source>
        <translation>Standard tuning  G C E A</translation>
    </message>
    <message>
        <source>ChordsTitleB</source>
        <translation>Baritone  D G B E</translation>
    </message>
    <message>
        <source>ChordsTitleSl</source>
        <translation>Open C  G C E G</translation>
    </message>
    <message>
        <source>ChordsTitleSlB</source>
        <translation>Open G  D G B D</translation>
    </message>
    <message>
        <source>A</source>
        <translation>A</translation>
    </message>
    <message>
        <source>A#/B♭</source>
        <translation>A#/B♭</translation>
    </message>
    <message>
        <source>B</source>
        <translation>B</translation>
    </message>
    <message>
        <source>C</source>
        <translation>C</translation>
    </message>
    <message>
        <source>C#/D♭</source>
        <translation>C#/D♭</translation>
    </message>
    <message>
        <source>D</source>
        <translation>D</translation>
    </message>
    <message>
        <source>D#/E♭</source>
        <translation>D#/E♭</translation>
    </message>
    <message>
        <source>E</source>
        <translation>E</translation>
    </message>
    <message>
        <source>F</source>
        <translation>F</translation>
    </message>
    <message>
        <source>F#/G♭</source>
        <translation>F#/G♭</translation>
    </message>
    <message>
        <source>G</source>
        <translation>G</translation>
    </message>
    <message>
        <source>G#/A♭</source>
        <translation>G#/A♭</translation>
    </message>
</context>
<context>
    <name>RatingPromptLocalizable</name>
    <message>
        <source>Rate %@</source>
        <translation>Rate %@</translation>
    </message>
    <message>
        <source>If you enjoy using %@, would you mind taking a moment to rate it? It won't take more than a minute. Thanks for your support!</source>
        <translation>If you enjoy using %@, would you mind taking a moment to rate it? It won't take more than a minute. Thanks for your support!</translation>
    </message>
    <message>
        <source>No, Thanks</source>
        <translation>No, Thanks</translation>
    </message>
    <message>
        <source>Remind me later</source>
        <translation>Remind me later</translation>
    </message>
    <message>
        <source>CFBundleDisplayName</source>
        <translation>Ukulele Tuner</translation>
    </message>
</context>
<context>
    <name>Main</name>
    <message>
        <source>Ukulele Tuner</source>
        <translation>Ukulele Tuner</translation>
    </message>
</context>
<context>
    <name>Sheet</name>
    <message>
        <source>Done</source>
        <translation>Done</translation>
    </message>
</context>
<context>
    <name>TunerScreen</name>
    <message>
        <source>Pluck a string</source>
        <translation>Pluck a string</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>No microphone found</translation>
    </message>
    <message>
        <source>Previous tuning</source>
        <translation>Previous tuning</translation>
    </message>
    <message>
        <source>Next tuning</source>
        <translation>Next tuning</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>Tuning fork</source>
        <translation>Tuning fork</translation>
    </message>
    <message>
        <source>Chord library</source>
        <translation>Chord library</translation>
    </message>
    <message>
        <source>About</source>
        <translation>About</translation>
    </message>
    <message>
        <source>Tuning: %1</source>
        <translation>Tuning: %1</translation>
    </message>
    <message>
        <source>No note</source>
        <translation>No note</translation>
    </message>
    <message>
        <source>Note: %1</source>
        <translation>Note: %1</translation>
    </message>
    <message>
        <source>In tune</source>
        <translation>In tune</translation>
    </message>
    <message>
        <source>Not in tune</source>
        <translation>Not in tune</translation>
    </message>
    <message>
        <source>Play %1</source>
        <translation>Play %1</translation>
    </message>
</context>
<context>
    <name>SettingsSheet</name>
    <message>
        <source>Settings</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>Note names</source>
        <translation>Note names</translation>
    </message>
    <message>
        <source>Calibration down</source>
        <translation>Calibration down</translation>
    </message>
    <message>
        <source>Calibration up</source>
        <translation>Calibration up</translation>
    </message>
</context>
<context>
    <name>AboutSheet</name>
    <message>
        <source>About</source>
        <translation>About</translation>
    </message>
    <message>
        <source>Ukulele Tuner</source>
        <translation>Ukulele Tuner</translation>
    </message>
    <message>
        <source>Rate the app</source>
        <translation>Rate the app</translation>
    </message>
    <message>
        <source>Visit the maker</source>
        <translation>Visit the maker</translation>
    </message>
</context>
<context>
    <name>TuningForkSheet</name>
    <message>
        <source>Tuning Fork</source>
        <translation>Tuning Fork</translation>
    </message>
    <message>
        <source>Tap a string</source>
        <translation>Tap a string</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>Play %1</source>
        <translation>Play %1</translation>
    </message>
</context>
<context>
    <name>ChordsScreen</name>
    <message>
        <source>Back to the tuner</source>
        <translation>Back to the tuner</translation>
    </message>
    <message>
        <source>Root</source>
        <translation>Root</translation>
    </message>
    <message>
        <source>Chord type</source>
        <translation>Chord type</translation>
    </message>
    <message>
        <source>Sharps or flats</source>
        <translation>Sharps or flats</translation>
    </message>
</context>
<context>
    <name>WebPage</name>
    <message>
        <source>Tap to start listening</source>
        <translation>Tap to start listening</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Dismiss</translation>
    </message>
    <message>
        <source>Microphone access was refused. Allow the microphone for this page in the browser's settings, then reload.</source>
        <translation>Microphone access was refused. Allow the microphone for this page in the browser's settings, then reload.</translation>
    </message>
    <message>
        <source>No microphone was found. Connect one, then reload the page.</source>
        <translation>No microphone was found. Connect one, then reload the page.</translation>
    </message>
    <message>
        <source>The microphone was disconnected. Connect one, then reload the page.</source>
        <translation>The microphone was disconnected. Connect one, then reload the page.</translation>
    </message>
    <message>
        <source>This browser cannot open the microphone here. Open the page over https, or on this device at http://127.0.0.1.</source>
        <translation>This browser cannot open the microphone here. Open the page over https, or on this device at http://127.0.0.1.</translation>
    </message>
    <message>
        <source>The microphone could not be opened. Close other apps that use it, then reload the page.</source>
        <translation>The microphone could not be opened. Close other apps that use it, then reload the page.</translation>
    </message>
</context>
</TS>
