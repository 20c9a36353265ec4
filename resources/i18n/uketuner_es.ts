<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es">
<context>
    <name>Localizable</name>
    <message>
        <source>TuningFreeTitle1</source>
        <translation>Estándar  G C E A</translation>
    </message>
    <message>
        <source>TuningFreeTitle2</source>
        <translation>G grave  G C E A</translation>
    </message>
    <message>
        <source>TuningFreeTitle3</source>
        <translation>Afin. D  A D F# B</translation>
    </message>
    <message>
        <source>TuningFreeTitle4</source>
        <translation>A grave  A D F# B</translation>
    </message>
    <message>
        <source>TuningFreeTitle5</source>
        <translation>Barítono  D G B E</translation>
    </message>
    <message>
        <source>TuningFreeTitle6</source>
        <translation>Slack A♭  F# B D# G#</translation>
    </message>
    <message>
        <source>TuningFreeTitle7</source>
        <translation>Afin. B♭  F A# D G</translation>
    </message>
    <message>
        <source>TuningFreeTitle8</source>
        <translation>Afin. B  G# C# F A#</translation>
    </message>
    <message>
        <source>TuningFreeTitle9</source>
        <translation>Canadiense  A D F# B</translation>
    </message>
    <message>
        <source>TuningFreeTitle10</source>
        <translation>C abierto  G C E G</translation>
    </message>
    <message>
        <source>TuningFreeTitle11</source>
        <translation>G abierto  D G B D</translation>
    </message>
    <message>
        <source>TunerAboutCongratsMessage</source>
        <translation>¡Gracias por afinar con nosotros! Pulsa las cuerdas de una en una y mantén el instrumento cerca: la luz se pone verde cuando la cuerda está afinada.</translation>
    </message>
    <message>
        <source>TunerAboutMsg2</source>
        <translation>Hecho con cariño para quienes tocan el ukelele. Si el afinador te ayuda, tu valoración nos ayuda a seguir mejorándolo.</translation>
    </message>
    <message>
        <source>MicSensitivityTitle</source>
        <translation>Sensibilidad del micrófono</translation>
    </message>
    <message>
        <source>SoundNotificationTitle</source>
        <translation>Pitido al afinar</translation>
    </message>
    <message>
        <source>StringSoundsTitle</source>
        <translation>Sonidos de cuerdas grabados</translation>
    </message>
    <message>
        <source>FrequencyChartTitle</source>
        <translation>Tabla de frecuencias</translation>
    </message>
    <message>
        <source>CalibrationTitle</source>
        <translation>Calibración La4 =</translation>
    </message>
    <message>
        <source>HzTitle</source>
        <translation>Hz</translation>
    </message>
    <message>
        <source>Lang0</source>
        <translation>Idioma del dispositivo</translation>
    </message>
    <message>
        <source>Lang1</source>
        <translation>Letras (C D E)</translation>
    </message>
    <message>
        <source>Lang2</source>
        <translation>Solfeo (Do Re Mi)</translation>
    </message>
    <message>
        <source>Lang3</source>
        <translation>Solfeo (Do Ré Mi)</translation>
    </message>
    <message>
        <source>Lang4</source>
        <translation>Alemán (C D E H)</translation>
    </message>
    <message>
        <source>Lang5</source>
        <translation>Cirílico (До Ре Ми)</translation>
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
        <translation>Biblioteca de acordes</translation>
    </message>
    <message>
        <source>ChordsTitleSCT</source>
        <translation>Afinación estándar  G C E A</translation>
    </message>
    <message>
        <source>ChordsTitleB</source>
        <translation>Barítono  D G B E</translation>
    </message>
    <message>
        <source>ChordsTitleSl</source>
        <translation>C abierto  G C E G</translation>
    </message>
    <message>
        <source>ChordsTitleSlB</source>
        <translation>G abierto  D G B D</translation>
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
        <translation>Valorar %@</translation>
    </message>
    <message>
        <source>If you enjoy using %@, would you mind taking a moment to rate it? It won't take more than a minute. Thanks for your support!</source>
        <translation>Si te gusta usar %@, ¿te importaría dedicar un momento a valorarla? No te llevará más de un minuto. ¡Gracias por tu apoyo!</translation>
    </message>
    <message>
        <source>No, Thanks</source>
        <translation>No, gracias</translation>
    </message>
    <message>
        <source>Remind me later</source>
        <translation>Recordármelo más tarde</translation>
    </message>
    <message>
        <source>CFBundleDisplayName</source>
        <translation>Afinador de ukelele</translation>
    </message>
</context>
<context>
    <name>Main</name>
    <message>
        <source>Ukulele Tuner</source>
        <translation>Afinador de ukelele</translation>
    </message>
</context>
<context>
    <name>Sheet</name>
    <message>
        <source>Done</source>
        <translation>Listo</translation>
    </message>
</context>
<context>
    <name>TunerScreen</name>
    <message>
        <source>Pluck a string</source>
        <translation>Pulsa una cuerda</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>No se encuentra el micrófono</translation>
    </message>
    <message>
        <source>Previous tuning</source>
        <translation>Afinación anterior</translation>
    </message>
    <message>
        <source>Next tuning</source>
        <translation>Afinación siguiente</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>Tuning fork</source>
        <translation>Diapasón</translation>
    </message>
    <message>
        <source>Chord library</source>
        <translation>Biblioteca de acordes</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Acerca de</translation>
    </message>
    <message>
        <source>Tuning: %1</source>
        <translation>Afinación: %1</translation>
    </message>
    <message>
        <source>No note</source>
        <translation>Ninguna nota</translation>
    </message>
    <message>
        <source>Note: %1</source>
        <translation>Nota: %1</translation>
    </message>
    <message>
        <source>In tune</source>
        <translation>Afinado</translation>
    </message>
    <message>
        <source>Not in tune</source>
        <translation>Desafinado</translation>
    </message>
    <message>
        <source>Play %1</source>
        <translation>Tocar %1</translation>
    </message>
</context>
<context>
    <name>SettingsSheet</name>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>Note names</source>
        <translation>Nombres de las notas</translation>
    </message>
    <message>
        <source>Calibration down</source>
        <translation>Bajar calibración</translation>
    </message>
    <message>
        <source>Calibration up</source>
        <translation>Subir calibración</translation>
    </message>
</context>
<context>
    <name>AboutSheet</name>
    <message>
        <source>About</source>
        <translation>Acerca de</translation>
    </message>
    <message>
        <source>Ukulele Tuner</source>
        <translation>Afinador de ukelele</translation>
    </message>
    <message>
        <source>Rate the app</source>
        <translation>Valorar la app</translation>
    </message>
    <message>
        <source>Visit the maker</source>
        <translation>Visitar al creador</translation>
    </message>
</context>
<context>
    <name>TuningForkSheet</name>
    <message>
        <source>Tuning Fork</source>
        <translation>Diapasón</translation>
    </message>
    <message>
        <source>Tap a string</source>
        <translation>Toca una cuerda</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Detener</translation>
    </message>
    <message>
        <source>Play %1</source>
        <translation>Tocar %1</translation>
    </message>
</context>
<context>
    <name>ChordsScreen</name>
    <message>
        <source>Back to the tuner</source>
        <translation>Volver al afinador</translation>
    </message>
    <message>
        <source>Root</source>
        <translation>Tónica</translation>
    </message>
    <message>
        <source>Chord type</source>
        <translation>Tipo de acorde</translation>
    </message>
    <message>
        <source>Sharps or flats</source>
        <translation>Sostenidos o bemoles</translation>
    </message>
</context>
<context>
    <name>WebPage</name>
    <message>
        <source>Tap to start listening</source>
        <translation>Toca para empezar a escuchar</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Microphone access was refused. Allow the microphone for this page in the browser's settings, then reload.</source>
        <translation>Se denegó el acceso al micrófono. Permite el micrófono para esta página en los ajustes del navegador y vuelve a cargarla.</translation>
    </message>
    <message>
        <source>No microphone was found. Connect one, then reload the page.</source>
        <translation>No se encontró ningún micrófono. Conecta uno y vuelve a cargar la página.</translation>
    </message>
    <message>
        <source>The microphone was disconnected. Connect one, then reload the page.</source>
        <translation>El micrófono se desconectó. Conecta uno y vuelve a cargar la página.</translation>
    </message>
    <message>
        <source>This browser cannot open the microphone here. Open the page over https, or on this device at http://127.0.0.1.</source>
        <translation>Este navegador no puede abrir el micrófono aquí. Abre la página por https, o en este dispositivo en http://127.0.0.1.</translation>
    </message>
    <message>
        <source>The microphone could not be opened. Close other apps that use it, then reload the page.</source>
        <translation>No se pudo abrir el micrófono. Cierra otras apps que lo usen y vuelve a cargar la página.</translation>
    </message>
</context>
</TS>
