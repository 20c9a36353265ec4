<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it">
<context>
    <name>Localizable</name>
    <message>
        <source>TuningFreeTitle1</source>
        <translation>Standard  G C E A</translation>
    </message>
    <message>
        <source>TuningFreeTitle2</source>
        <translation>G basso  G C E A</translation>
    </message>
    <message>
        <source>TuningFreeTitle3</source>
        <translation>Accord. D  A D F# B</translation>
    </message>
    <message>
        <source>TuningFreeTitle4</source>
        <translation>A basso  A D F# B</translation>
    </message>
    <message>
        <source>TuningFreeTitle5</source>
        <translation>Baritono  D G B E</translation>
    </message>
    <message>
        <source>TuningFreeTitle6</source>
        <translation>Slack A♭  F# B D# G#</translation>
    </message>
    <message>
        <source>TuningFreeTitle7</source>
        <translation>Accord. B♭  F A# D G</translation>
    </message>
    <message>
        <source>TuningFreeTitle8</source>
        <translation>Accord. B  G# C# F A#</translation>
    </message>
    <message>
        <source>TuningFreeTitle9</source>
        <translation>Canadese  A D F# B</translation>
    </message>
    <message>
        <source>TuningFreeTitle10</source>
        <translation>C aperto  G C E G</translation>
    </message>
    <message>
        <source>TuningFreeTitle11</source>
        <translation>G aperto  D G B D</translation>
    </message>
    <message>
        <source>TunerAboutCongratsMessage</source>
        <translation>Grazie per accordare con noi! Pizzica una corda alla volta e tieni lo strumento vicino: la spia diventa verde quando la corda è intonata.</translation>
    </message>
    <message>
        <source>TunerAboutMsg2</source>
        <translation>Realizzato con cura per chi suona l'ukulele. Se l'accordatore ti è utile, una valutazione ci aiuta a continuare a migliorarlo.</translation>
    </message>
    <message>
        <source>MicSensitivityTitle</source>
        <translation>Sensibilità del microfono</translation>
    </message>
    <message>
        <source>SoundNotificationTitle</source>
        <translation>Bip a corda intonata</translation>
    </message>
    <message>
        <source>StringSoundsTitle</source>
        <translation>Suoni registrati delle corde</translation>
    </message>
    <message>
        <source>FrequencyChartTitle</source>
        <translation>Tabella delle frequenze</translation>
    </message>
    <message>
        <source>CalibrationTitle</source>
        <translation>Calibrazione La4 =</translation>
    </message>
    <message>
        <source>HzTitle</source>
        <translation>Hz</translation>
    </message>
    <message>
        <source>Lang0</source>
        <translation>Lingua del dispositivo</translation>
    </message>
    <message>
        <source>Lang1</source>
        <translation>Lettere (C D E)</translation>
    </message>
    <message>
        <source>Lang2</source>
        <translation>Solfeggio (Do Re Mi)</translation>
    </message>
    <message>
        <source>Lang3</source>
        <translation>Solfeggio (Do Ré Mi)</translation>
    </message>
    <message>
        <source>Lang4</source>
        <translation>Tedesco (C D E H)</translation>
    </message>
    <message>
        <source>Lang5</source>
        <translation>Cirillico (До Ре Ми)</translation>
    </message>
    <message>
        <source>ANoteM</source>
        <translation>La%@</translation>
    </message>
    <message>
        <source>BNoteM</source>
        <translation>Si%@</translation>
    </message>
    <message>
        <source>CNoteM</source>
        <translation>Do%@</translation>
    </message>
    <message>
        <source>DNoteM</source>
        <translation>Re%@</translation>
    </message>
    <message>
        <source>ENoteM</source>
        <translation>Mi%@</translation>
    </message>
    <message>
        <source>GNoteM</source>
        <translation>Sol%@</translation>
    </message>
    <message>
        <source>ChordsTitleGlobal</source>
        <translation>Libreria di accordi</translation>
    </message>
    <message>
        <source>ChordsTitleSCT</source>
        <translation>Accordatura standard  G C E A</translation>
    </message>
    <message>
        <source>ChordsTitleB</source>
        <translation>Baritono  D G B E</translation>
    </message>
    <message>
        <source>ChordsTitleSl</source>
        <translation>C aperto  G C E G</translation>
    </message>
    <message>
        <source>ChordsTitleSlB</source>
        <translation>G aperto  D G B D</translation>
    </message>
    <message>
        <source>A</source>
        <translation>La</translation>
    </message>
    <message>
        <source>A#/B♭</source>
        <translation>La#/Si♭</translation>
    </message>
    <message>
        <source>B</source>
        <translation>Si</translation>
    </message>
    <message>
        <source>C</source>
        <translation>Do</translation>
    </message>
    <message>
        <source>C#/D♭</source>
        <translation>Do#/Re♭</translation>
    </message>
    <message>
        <source>D</source>
        <translation>Re</translation>
    </message>
    <message>
        <source>D#/E♭</source>
        <translation>Re#/Mi♭</translation>
    </message>
    <message>
        <source>E</source>
        <translation>Mi</translation>
    </message>
    <message>
        <source>F</source>
        <translation>Fa</translation>
    </message>
    <message>
        <source>F#/G♭</source>
        <translation>Fa#/Sol♭</translation>
    </message>
    <message>
        <source>G</source>
        <translation>Sol</translation>
    </message>
    <message>
        <source>G#/A♭</source>
        <translation>Sol#/La♭</translation>
    </message>
</context>
<context>
    <name>RatingPromptLocalizable</name>
    <message>
        <source>Rate %@</source>
        <translation>Valuta %@</translation>
    </message>
    <message>
        <source>If you enjoy using %@, would you mind taking a moment to rate it? It won't take more than a minute. Thanks for your support!</source>
        <translation>Se ti piace usare %@, ti andrebbe di dedicare un momento a valutarla? Non ci vorrà più di un minuto. Grazie per il tuo supporto!</translation>
    </message>
    <message>
        <source>No, Thanks</source>
        <translation>No, grazie</translation>
    </message>
    <message>
        <source>Remind me later</source>
        <translation>Ricordamelo più tardi</translation>
    </message>
    <message>
        <source>CFBundleDisplayName</source>
        <translation>Accordatore per ukulele</translation>
    </message>
</context>
<context>
    <name>Main</name>
    <message>
        <source>Ukulele Tuner</source>
        <translation>Accordatore per ukulele</translation>
    </message>
</context>
<context>
    <name>Sheet</name>
    <message>
        <source>Done</source>
        <translation>Fine</translation>
    </message>
</context>
<context>
    <name>TunerScreen</name>
    <message>
        <source>Pluck a string</source>
        <translation>Pizzica una corda</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>Nessun microfono trovato</translation>
    </message>
    <message>
        <source>Previous tuning</source>
        <translation>Accordatura precedente</translation>
    </message>
    <message>
        <source>Next tuning</source>
        <translation>Accordatura successiva</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Impostazioni</translation>
    </message>
    <message>
        <source>Tuning fork</source>
        <translation>Diapason</translation>
    </message>
    <message>
        <source>Chord library</source>
        <translation>Libreria di accordi</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Informazioni</translation>
    </message>
    <message>
        <source>Tuning: %1</source>
        <translation>Accordatura: %1</translation>
    </message>
    <message>
        <source>No note</source>
        <translation>Nessuna nota</translation>
    </message>
    <message>
        <source>Note: %1</source>
        <translation>Nota: %1</translation>
    </message>
    <message>
        <source>In tune</source>
        <translation>Intonato</translation>
    </message>
    <message>
        <source>Not in tune</source>
        <translation>Non intonato</translation>
    </message>
    <message>
        <source>Play %1</source>
        <translation>Suona %1</translation>
    </message>
</context>
<context>
    <name>SettingsSheet</name>
    <message>
        <source>Settings</source>
        <translation>Impostazioni</translation>
    </message>
    <message>
        <source>Note names</source>
        <translation>Nomi delle note</translation>
    </message>
    <message>
        <source>Calibration down</source>
        <translation>Abbassa la calibrazione</translation>
    </message>
    <message>
        <source>Calibration up</source>
        <translation>Alza la calibrazione</translation>
    </message>
</context>
<context>
    <name>AboutSheet</name>
    <message>
        <source>About</source>
        <translation>Informazioni</translation>
    </message>
    <message>
        <source>Ukulele Tuner</source>
        <translation>Accordatore per ukulele</translation>
    </message>
    <message>
        <source>Rate the app</source>
        <translation>Valuta l'app</translation>
    </message>
    <message>
        <source>Visit the maker</source>
        <translation>Visita il creatore</translation>
    </message>
</context>
<context>
    <name>TuningForkSheet</name>
    <message>
        <source>Tuning Fork</source>
        <translation>Diapason</translation>
    </message>
    <message>
        <source>Tap a string</source>
        <translation>Tocca una corda</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Ferma</translation>
    </message>
    <message>
        <source>Play %1</source>
        <translation>Suona %1</translation>
    </message>
</context>
<context>
    <name>ChordsScreen</name>
    <message>
        <source>Back to the tuner</source>
        <translation>Torna all'accordatore</translation>
    </message>
    <message>
        <source>Root</source>
        <translation>Tonica</translation>
    </message>
    <message>
        <source>Chord type</source>
        <translation>Tipo di accordo</translation>
    </message>
    <message>
        <source>Sharps or flats</source>
        <translation>Diesis o bemolle</translation>
    </message>
</context>
<context>
    <name>WebPage</name>
    <message>
        <source>Tap to start listening</source>
        <translation>Tocca per iniziare ad ascoltare</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Chiudi</translation>
    </message>
    <message>
        <source>Microphone access was refused. Allow the microphone for this page in the browser's settings, then reload.</source>
        <translation>L'accesso al microfono è stato negato. Consenti il microfono per questa pagina nelle impostazioni del browser, poi ricaricala.</translation>
    </message>
    <message>
        <source>No microphone was found. Connect one, then reload the page.</source>
        <translation>Nessun microfono trovato. Collegane uno, poi ricarica la pagina.</translation>
    </message>
    <message>
        <source>The microphone was disconnected. Connect one, then reload the page.</source>
        <translation>Il microfono è stato scollegato. Collegane uno, poi ricarica la pagina.</translation>
    </message>
    <message>
        <source>This browser cannot open the microphone here. Open the page over https, or on this device at http://127.0.0.1.</source>
        <translation>Questo browser non può aprire il microfono qui. Apri la pagina in https, o su questo dispositivo all'indirizzo http://127.0.0.1.</translation>
    </message>
    <message>
        <source>The microphone could not be opened. Close other apps that use it, then reload the page.</source>
        <translation>Impossibile aprire il microfono. Chiudi le altre app che lo usano, poi ricarica la pagina.</translation>
    </message>
</context>
</TS>
