<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>Localizable</name>
    <message>
        <source>TuningFreeTitle1</source>
        <translation>Standard  G C E A</translation>
    </message>
    <message>
        <source>TuningFreeTitle2</source>
        <translation>G grave  G C E A</translation>
    </message>
    <message>
        <source>TuningFreeTitle3</source>
        <translation>Accord D  A D F# B</translation>
    </message>
    <message>
        <source>TuningFreeTitle4</source>
        <translation>A grave  A D F# B</translation>
    </message>
    <message>
        <source>TuningFreeTitle5</source>
        <translation>Baryton  D G B E</translation>
    </message>
    <message>
        <source>TuningFreeTitle6</source>
        <translation>Slack A♭  F# B D# G#</translation>
    </message>
    <message>
        <source>TuningFreeTitle7</source>
        <translation>Accord B♭  F A# D G</translation>
    </message>
    <message>
        <source>TuningFreeTitle8</source>
        <translation>Accord B  G# C# F A#</translation>
    </message>
    <message>
        <source>TuningFreeTitle9</source>
        <translation>D canadien  A D F# B</translation>
    </message>
    <message>
        <source>TuningFreeTitle10</source>
        <translation>C ouvert  G C E G</translation>
    </message>
    <message>
        <source>TuningFreeTitle11</source>
        <translation>G ouvert  D G B D</translation>
    </message>
    <message>
        <source>TunerAboutCongratsMessage</source>
        <translation>Merci d'accorder avec nous ! Pincez une corde à la fois et gardez l'instrument près de vous : le voyant passe au vert quand la corde est juste.</translation>
    </message>
    <message>
        <source>TunerAboutMsg2</source>
        <translation>Conçu avec soin pour les joueurs de ukulélé. Si l'accordeur vous est utile, une note nous aide à continuer de l'améliorer.</translation>
    </message>
    <message>
        <source>MicSensitivityTitle</source>
        <translation>Sensibilité du micro</translation>
    </message>
    <message>
        <source>SoundNotificationTitle</source>
        <translation>Bip quand la corde est juste</translation>
    </message>
    <message>
        <source>StringSoundsTitle</source>
        <translation>Sons de cordes enregistrés</translation>
    </message>
    <message>
        <source>FrequencyChartTitle</source>
        <translation>Tableau des fréquences</translation>
    </message>
    <message>
        <source>CalibrationTitle</source>
        <translation>Calibrage La4 =</translation>
    </message>
    <message>
        <source>HzTitle</source>
        <translation>Hz</translation>
    </message>
    <message>
        <source>Lang0</source>
        <translation>Langue de l'appareil</translation>
    </message>
    <message>
        <source>Lang1</source>
        <translation>Lettres (C D E)</translation>
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
        <translation>Allemand (C D E H)</translation>
    </message>
    <message>
        <source>Lang5</source>
        <translation>Cyrillique (До Ре Ми)</translation>
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
        <translation>Ré%@</translation>
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
        <translation>Bibliothèque d'accords</translation>
    </message>
    <message>
        <source>ChordsTitleSCT</source>
        <translation>Accord standard  G C E A</translation>
    </message>
    <message>
        <source>ChordsTitleB</source>
        <translation>Baryton  D G B E</translation>
    </message>
    <message>
        <source>ChordsTitleSl</source>
        <translation>C ouvert  G C E G</translation>
    </message>
    <message>
        <source>ChordsTitleSlB</source>
        <translation>G ouvert  D G B D</translation>
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
        <translation>Do#/Ré♭</translation>
    </message>
    <message>
        <source>D</source>
        <translation>Ré</translation>
    </message>
    <message>
        <source>D#/E♭</source>
        <translation>Ré#/Mi♭</translation>
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
        <translation>Noter %@</translation>
    </message>
    <message>
        <source>If you enjoy using %@, would you mind taking a moment to rate it? It won't take more than a minute. Thanks for your support!</source>
        <translation>Si vous aimez utiliser %@, pourriez-vous prendre un instant pour la noter ? Cela ne prendra pas plus d'une minute. Merci de votre soutien !</translation>
    </message>
    <message>
        <source>No, Thanks</source>
        <translation>Non, merci</translation>
    </message>
    <message>
        <source>Remind me later</source>
        <translation>Me le rappeler plus tard</translation>
    </message>
    <message>
        <source>CFBundleDisplayName</source>
        <translation>Accordeur de ukulélé</translation>
    </message>
</context>
<context>
    <name>Main</name>
    <message>
        <source>Ukulele Tuner</source>
        <translation>Accordeur de ukulélé</translation>
    </message>
</context>
<context>
    <name>Sheet</name>
    <message>
        <source>Done</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>TunerScreen</name>
    <message>
        <source>Pluck a string</source>
        <translation>Pincez une corde</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>Aucun micro trouvé</translation>
    </message>
    <message>
        <source>Previous tuning</source>
        <translation>Accordage précédent</translation>
    </message>
    <message>
        <source>Next tuning</source>
        <translation>Accordage suivant</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>Tuning fork</source>
        <translation>Diapason</translation>
    </message>
    <message>
        <source>Chord library</source>
        <translation>Bibliothèque d'accords</translation>
    </message>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>Tuning: %1</source>
        <translation>Accordage : %1</translation>
    </message>
    <message>
        <source>No note</source>
        <translation>Aucune note</translation>
    </message>
    <message>
        <source>Note: %1</source>
        <translation>Note : %1</translation>
    </message>
    <message>
        <source>In tune</source>
        <translation>Accordé</translation>
    </message>
    <message>
        <source>Not in tune</source>
        <translation>Pas accordé</translation>
    </message>
    <message>
        <source>Play %1</source>
        <translation>Jouer %1</translation>
    </message>
</context>
<context>
    <name>SettingsSheet</name>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>Note names</source>
        <translation>Noms des notes</translation>
    </message>
    <message>
        <source>Calibration down</source>
        <translation>Baisser l'étalonnage</translation>
    </message>
    <message>
        <source>Calibration up</source>
        <translation>Monter l'étalonnage</translation>
    </message>
</context>
<context>
    <name>AboutSheet</name>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>Ukulele Tuner</source>
        <translation>Accordeur de ukulélé</translation>
    </message>
    <message>
        <source>Rate the app</source>
        <translation>Noter l'app</translation>
    </message>
    <message>
        <source>Visit the maker</source>
        <translation>Visiter le créateur</translation>
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
        <translation>Touchez une corde</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Play %1</source>
        <translation>Jouer %1</translation>
    </message>
</context>
<context>
    <name>ChordsScreen</name>
    <message>
        <source>Back to the tuner</source>
        <translation>Retour à l'accordeur</translation>
    </message>
    <message>
        <source>Root</source>
        <translation>Fondamentale</translation>
    </message>
    <message>
        <source>Chord type</source>
        <translation>Type d'accord</translation>
    </message>
    <message>
        <source>Sharps or flats</source>
        <translation>Dièses ou bémols</translation>
    </message>
</context>
<context>
    <name>WebPage</name>
    <message>
        <source>Tap to start listening</source>
        <translation>Touchez l'écran pour commencer l'écoute</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Microphone access was refused. Allow the microphone for this page in the browser's settings, then reload.</source>
        <translation>L'accès au micro a été refusé. Autorisez le micro pour cette page dans les réglages du navigateur, puis rechargez-la.</translation>
    </message>
    <message>
        <source>No microphone was found. Connect one, then reload the page.</source>
        <translation>Aucun micro n'a été trouvé. Branchez-en un, puis rechargez la page.</translation>
    </message>
    <message>
        <source>The microphone was disconnected. Connect one, then reload the page.</source>
        <translation>Le micro a été débranché. Branchez-en un, puis rechargez la page.</translation>
    </message>
    <message>
        <source>This browser cannot open the microphone here. Open the page over https, or on this device at http://127.0.0.1.</source>
        <translation>Ce navigateur ne peut pas ouvrir le micro ici. Ouvrez la page en https, ou sur cet appareil à l'adresse http://127.0.0.1.</translation>
    </message>
    <message>
        <source>The microphone could not be opened. Close other apps that use it, then reload the page.</source>
        <translation>Le micro n'a pas pu être ouvert. Fermez les autres apps qui l'utilisent, puis rechargez la page.</translation>
    </message>
</context>
</TS>
