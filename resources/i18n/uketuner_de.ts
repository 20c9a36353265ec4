<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>Localizable</name>
    <message>
        <source>TuningFreeTitle1</source>
        <translation>Standard  G C E A</translation>
    </message>
    <message>
        <source>TuningFreeTitle2</source>
        <translation>Tiefes G  G C E A</translation>
    </message>
    <message>
        <source>TuningFreeTitle3</source>
        <translation>D-Stimmung  A D F# H</translation>
    </message>
    <message>
        <source>TuningFreeTitle4</source>
        <translation>Tiefes A  A D Fis H</translation>
    </message>
    <message>
        <source>TuningFreeTitle5</source>
        <translation>Bariton  D G H E</translation>
    </message>
    <message>
        <source>TuningFreeTitle6</source>
        <translation>Slack As  F# H D# G#</translation>
    </message>
    <message>
        <source>TuningFreeTitle7</source>
        <translation>B-Stimmung  F A# D G</translation>
    </message>
    <message>
        <source>TuningFreeTitle8</source>
        <translation>In H  G# C# F A#</translation>
    </message>
    <message>
        <source>TuningFreeTitle9</source>
        <translation>Kanadisch  A D F# H</translation>
    </message>
    <message>
        <source>TuningFreeTitle10</source>
        <translation>Offenes C  G C E G</translation>
    </message>
    <message>
        <source>TuningFreeTitle11</source>
        <translation>Offenes G  D G H D</translation>
    </message>
    <message>
        <source>TunerAboutCongratsMessage</source>
        <translation>Danke, dass du mit uns stimmst! Zupfe eine Saite nach der anderen und halte das Instrument nah am Gerät: Die Lampe wird grün, sobald die Saite gestimmt ist.</translation>
    </message>
    <message>
        <source>TunerAboutMsg2</source>
        <translation>Mit Sorgfalt für Ukulele-Spieler gemacht. Wenn dir das Stimmgerät hilft, hilft uns eine Bewertung, es weiter zu verbessern.</translation>
    </message>
    <message>
        <source>MicSensitivityTitle</source>
        <translation>Mikrofonempfindlichkeit</translation>
    </message>
    <message>
        <source>SoundNotificationTitle</source>
        <translation>Piepton, wenn gestimmt</translation>
    </message>
    <message>
        <source>StringSoundsTitle</source>
        <translation>Aufgenommene Saitenklänge</translation>
    </message>
    <message>
        <source>FrequencyChartTitle</source>
        <translation>Frequenztabelle</translation>
    </message>
    <message>
        <source>CalibrationTitle</source>
        <translation>Kalibrierung A4 =</translation>
    </message>
    <message>
        <source>HzTitle</source>
        <translation>Hz</translation>
    </message>
    <message>
        <source>Lang0</source>
        <translation>Gerätesprache</translation>
    </message>
    <message>
        <source>Lang1</source>
        <translation>Buchstaben (C D E)</translation>
    </message>
    <message>
        <source>Lang2</source>
        <translation>Solmisation (Do Re Mi)</translation>
    </message>
    <message>
        <source>Lang3</source>
        <translation>Solmisation (Do Ré Mi)</translation>
    </message>
    <message>
        <source>Lang4</source>
        <translation>Deutsch (C D E H)</translation>
    </message>
    <message>
        <source>Lang5</source>
        <translation>Kyrillisch (До Ре Ми)</translation>
    </message>
    <message>
        <source>ANoteM</source>
        <translation>A%@</translation>
    </message>
    <message>
        <source>BNoteM</source>
        <translation>H%@</translation>
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
        <translation>Akkordbibliothek</translation>
    </message>
    <message>
        <source>ChordsTitleSCT</source>
        <translation>Standardstimmung  G C E A</translation>
    </message>
    <message>
        <source>ChordsTitleB</source>
        <translation>Bariton  D G H E</translation>
    </message>
    <message>
        <source>ChordsTitleSl</source>
        <translation>Offenes C  G C E G</translation>
    </message>
    <message>
        <source>ChordsTitleSlB</source>
        <translation>Offenes G  D G H D</translation>
    </message>
    <message>
        <source>A</source>
        <translation>A</translation>
    </message>
    <message>
        <source>A#/B♭</source>
        <translation>Ais/B</translation>
    </message>
    <message>
        <source>B</source>
        <translation>H</translation>
    </message>
    <message>
        <source>C</source>
        <translation>C</translation>
    </message>
    <message>
        <source>C#/D♭</source>
        <translation>Cis/Des</translation>
    </message>
    <message>
        <source>D</source>
        <translation>D</translation>
    </message>
    <message>
        <source>D#/E♭</source>
        <translation>Dis/Es</translation>
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
        <translation>Fis/Ges</translation>
    </message>
    <message>
        <source>G</source>
        <translation>G</translation>
    </message>
    <message>
        <source>G#/A♭</source>
        <translation>Gis/As</translation>
    </message>
</context>
<context>
    <name>RatingPromptLocalizable</name>
    <message>
        <source>Rate %@</source>
        <translation>%@ bewerten</translation>
    </message>
    <message>
        <source>If you enjoy using %@, would you mind taking a moment to rate it? It won't take more than a minute. Thanks for your support!</source>
        <translation>Wenn dir %@ gefällt, würdest du dir einen Moment Zeit nehmen, um es zu bewerten? Es dauert nicht länger als eine Minute. Danke für deine Unterstützung!</translation>
    </message>
    <message>
        <source>No, Thanks</source>
        <translation>Nein, danke</translation>
    </message>
    <message>
        <source>Remind me later</source>
        <translation>Später erinnern</translation>
    </message>
    <message>
        <source>CFBundleDisplayName</source>
        <translation>Ukulele-Stimmgerät</translation>
    </message>
</context>
<context>
    <name>Main</name>
    <message>
        <source>Ukulele Tuner</source>
        <translation>Ukulele-Stimmgerät</translation>
    </message>
</context>
<context>
    <name>Sheet</name>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
</context>
<context>
    <name>TunerScreen</name>
    <message>
        <source>Pluck a string</source>
        <translation>Zupfe eine Saite</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>Kein Mikrofon gefunden</translation>
    </message>
    <message>
        <source>Previous tuning</source>
        <translation>Vorherige Stimmung</translation>
    </message>
    <message>
        <source>Next tuning</source>
        <translation>Nächste Stimmung</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Tuning fork</source>
        <translation>Stimmgabel</translation>
    </message>
    <message>
        <source>Chord library</source>
        <translation>Akkordbibliothek</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Tuning: %1</source>
        <translation>Stimmung: %1</translation>
    </message>
    <message>
        <source>No note</source>
        <translation>Kein Ton</translation>
    </message>
    <message>
        <source>Note: %1</source>
        <translation>Ton: %1</translation>
    </message>
    <message>
        <source>In tune</source>
        <translation>Gestimmt</translation>
    </message>
    <message>
        <source>Not in tune</source>
        <translation>Nicht gestimmt</translation>
    </message>
    <message>
        <source>Play %1</source>
        <translation>%1 spielen</translation>
    </message>
</context>
<context>
    <name>SettingsSheet</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Note names</source>
        <translation>Notennamen</translation>
    </message>
    <message>
        <source>Calibration down</source>
        <translation>Kalibrierung senken</translation>
    </message>
    <message>
        <source>Calibration up</source>
        <translation>Kalibrierung erhöhen</translation>
    </message>
</context>
<context>
    <name>AboutSheet</name>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Ukulele Tuner</source>
        <translation>Ukulele-Stimmgerät</translation>
    </message>
    <message>
        <source>Rate the app</source>
        <translation>App bewerten</translation>
    </message>
    <message>
        <source>Visit the maker</source>
        <translation>Zum Hersteller</translation>
    </message>
</context>
<context>
    <name>TuningForkSheet</name>
    <message>
        <source>Tuning Fork</source>
        <translation>Stimmgabel</translation>
    </message>
    <message>
        <source>Tap a string</source>
        <translation>Tippe auf eine Saite</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Play %1</source>
        <translation>%1 spielen</translation>
    </message>
</context>
<context>
    <name>ChordsScreen</name>
    <message>
        <source>Back to the tuner</source>
        <translation>Zurück zum Stimmgerät</translation>
    </message>
    <message>
        <source>Root</source>
        <translation>Grundton</translation>
    </message>
    <message>
        <source>Chord type</source>
        <translation>Akkordtyp</translation>
    </message>
    <message>
        <source>Sharps or flats</source>
        <translation>Kreuz oder Be</translation>
    </message>
</context>
<context>
    <name>WebPage</name>
    <message>
        <source>Tap to start listening</source>
        <translation>Tippe, um das Zuhören zu starten</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>Microphone access was refused. Allow the microphone for this page in the browser's settings, then reload.</source>
        <translation>Der Zugriff auf das Mikrofon wurde verweigert. Erlaube das Mikrofon für diese Seite in den Einstellungen des Browsers und lade sie dann neu.</translation>
    </message>
    <message>
        <source>No microphone was found. Connect one, then reload the page.</source>
        <translation>Es wurde kein Mikrofon gefunden. Schließe eines an und lade die Seite dann neu.</translation>
    </message>
    <message>
        <source>The microphone was disconnected. Connect one, then reload the page.</source>
        <translation>Das Mikrofon wurde getrennt. Schließe eines an und lade die Seite dann neu.</translation>
    </message>
    <message>
        <source>This browser cannot open the microphone here. Open the page over https, or on this device at http://127.0.0.1.</source>
        <translation>Dieser Browser kann das Mikrofon hier nicht öffnen. Öffne die Seite über https oder auf diesem Gerät unter http://127.0.0.1.</translation>
    </message>
    <message>
        <source>The microphone could not be opened. Close other apps that use it, then reload the page.</source>
        <translation>Das Mikrofon konnte nicht geöffnet werden. Schließe andere Apps, die es verwenden, und lade die Seite dann neu.</translation>
    </message>
</context>
</TS>
