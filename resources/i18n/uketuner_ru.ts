<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru">
<context>
    <name>Localizable</name>
    <message>
        <source>TuningFreeTitle1</source>
        <translation>Стандарт  G C E A</translation>
    </message>
    <message>
        <source>TuningFreeTitle2</source>
        <translation>Низкий G  G C E A</translation>
    </message>
    <message>
        <source>TuningFreeTitle3</source>
        <translation>Строй D  A D F# B</translation>
    </message>
    <message>
        <source>TuningFreeTitle4</source>
        <translation>Низкий A  A D F# B</translation>
    </message>
    <message>
        <source>TuningFreeTitle5</source>
        <translation>Баритон  D G B E</translation>
    </message>
    <message>
        <source>TuningFreeTitle6</source>
        <translation>Слэк A♭  F# B D# G#</translation>
    </message>
    <message>
        <source>TuningFreeTitle7</source>
        <translation>Строй B♭  F A# D G</translation>
    </message>
    <message>
        <source>TuningFreeTitle8</source>
        <translation>Строй B  G# C# F A#</translation>
    </message>
    <message>
        <source>TuningFreeTitle9</source>
        <translation>Канадский  A D F# B</translation>
    </message>
    <message>
        <source>TuningFreeTitle10</source>
        <translation>Открытый C  G C E G</translation>
    </message>
    <message>
        <source>TuningFreeTitle11</source>
        <translation>Открытый G  D G B D</translation>
    </message>
    <message>
        <source>TunerAboutCongratsMessage</source>
        <translation>Спасибо, что настраиваетесь с нами! Дёргайте струны по одной и держите инструмент поближе: лампа становится зелёной, когда струна настроена.</translation>
    </message>
    <message>
        <source>TunerAboutMsg2</source>
        <translation>Сделано с заботой об исполнителях на укулеле. Если тюнер вам помогает, ваша оценка поможет нам делать его лучше.</translation>
    </message>
    <message>
        <source>MicSensitivityTitle</source>
        <translation>Чувствительность микрофона</translation>
    </message>
    <message>
        <source>SoundNotificationTitle</source>
        <translation>Сигнал при настройке</translation>
    </message>
    <message>
        <source>StringSoundsTitle</source>
        <translation>Записанные звуки струн</translation>
    </message>
    <message>
        <source>FrequencyChartTitle</source>
        <translation>Таблица частот</translation>
    </message>
    <message>
        <source>CalibrationTitle</source>
        <translation>Калибровка Ля4 =</translation>
    </message>
    <message>
        <source>HzTitle</source>
        <translation>Гц</translation>
    </message>
    <message>
        <source>Lang0</source>
        <translation>Язык устройства</translation>
    </message>
    <message>
        <source>Lang1</source>
        <translation>Буквы (C D E)</translation>
    </message>
    <message>
        <source>Lang2</source>
        <translation>Сольфеджио (Do Re Mi)</translation>
    </message>
    <message>
        <source>Lang3</source>
        <translation>Сольфеджио (Do Ré Mi)</translation>
    </message>
    <message>
        <source>Lang4</source>
        <translation>Немецкие (C D E H)</translation>
    </message>
    <message>
        <source>Lang5</source>
        <translation>Кириллица (До Ре Ми)</translation>
    </message>
    <message>
        <source>ANoteM</source>
        <translation>Ля%@</translation>
    </message>
    <message>
        <source>BNoteM</source>
        <translation>Си%@</translation>
    </message>
    <message>
        <source>CNoteM</source>
        <translation>До%@</translation>
    </message>
    <message>
        <source>DNoteM</source>
        <translation>Ре%@</translation>
    </message>
    <message>
        <source>ENoteM</source>
        <translation>Ми%@</translation>
    </message>
    <message>
        <source>GNoteM</source>
        <translation>Соль%@</translation>
    </message>
    <message>
        <source>ChordsTitleGlobal</source>
        <translation>Библиотека аккордов</translation>
    </message>
    <message>
        <source>ChordsTitleSCT</source>
        <translation>Стандартный строй  G C E A</translation>
    </message>
    <message>
        <source>ChordsTitleB</source>
        <translation>Баритон  D G B E</translation>
    </message>
    <message>
        <source>ChordsTitleSl</source>
        <translation>Открытый C  G C E G</translation>
    </message>
    <message>
        <source>ChordsTitleSlB</source>
        <translation>Открытый G  D G B D</translation>
    </message>
    <message>
        <source>A</source>
        <translation>Ля</translation>
    </message>
    <message>
        <source>A#/B♭</source>
        <translation>Ля#/Си♭</translation>
    </message>
    <message>
        <source>B</source>
        <translation>Си</translation>
    </message>
    <message>
        <source>C</source>
        <translation>До</translation>
    </message>
    <message>
        <source>C#/D♭</source>
        <translation>До#/Ре♭</translation>
    </message>
    <message>
        <source>D</source>
        <translation>Ре</translation>
    </message>
    <message>
        <source>D#/E♭</source>
        <translation>Ре#/Ми♭</translation>
    </message>
    <message>
        <source>E</source>
        <translation>Ми</translation>
    </message>
    <message>
        <source>F</source>
        <translation>Фа</translation>
    </message>
    <message>
        <source>F#/G♭</source>
        <translation>Фа#/Соль♭</translation>
    </message>
    <message>
        <source>G</source>
        <translation>Соль</translation>
    </message>
    <message>
        <source>G#/A♭</source>
        <translation>Соль#/Ля♭</translation>
    </message>
</context>
<context>
    <name>RatingPromptLocalizable</name>
    <message>
        <source>Rate %@</source>
        <translation>Оценить %@</translation>
    </message>
    <message>
        <source>If you enjoy using %@, would you mind taking a moment to rate it? It won't take more than a minute. Thanks for your support!</source>
        <translation>Если вам нравится %@, не могли бы вы уделить минутку и оценить приложение? Это займёт не больше минуты. Спасибо за поддержку!</translation>
    </message>
    <message>
        <source>No, Thanks</source>
        <translation>Нет, спасибо</translation>
    </message>
    <message>
        <source>Remind me later</source>
        <translation>Напомнить позже</translation>
    </message>
    <message>
        <source>CFBundleDisplayName</source>
        <translation>Тюнер для укулеле</translation>
    </message>
</context>
<context>
    <name>Main</name>
    <message>
        <source>Ukulele Tuner</source>
        <translation>Тюнер для укулеле</translation>
    </message>
</context>
<context>
    <name>Sheet</name>
    <message>
        <source>Done</source>
        <translation>Готово</translation>
    </message>
</context>
<context>
    <name>TunerScreen</name>
    <message>
        <source>Pluck a string</source>
        <translation>Дёрните струну</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>Микрофон не найден</translation>
    </message>
    <message>
        <source>Previous tuning</source>
        <translation>Предыдущий строй</translation>
    </message>
    <message>
        <source>Next tuning</source>
        <translation>Следующий строй</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Настройки</translation>
    </message>
    <message>
        <source>Tuning fork</source>
        <translation>Камертон</translation>
    </message>
    <message>
        <source>Chord library</source>
        <translation>Библиотека аккордов</translation>
    </message>
    <message>
        <source>About</source>
        <translation>О программе</translation>
    </message>
    <message>
        <source>Tuning: %1</source>
        <translation>Строй: %1</translation>
    </message>
    <message>
        <source>No note</source>
        <translation>Нет ноты</translation>
    </message>
    <message>
        <source>Note: %1</source>
        <translation>Нота: %1</translation>
    </message>
    <message>
        <source>In tune</source>
        <translation>Настроено</translation>
    </message>
    <message>
        <source>Not in tune</source>
        <translation>Не настроено</translation>
    </message>
    <message>
        <source>Play %1</source>
        <translation>Сыграть %1</translation>
    </message>
</context>
<context>
    <name>SettingsSheet</name>
    <message>
        <source>Settings</source>
        <translation>Настройки</translation>
    </message>
    <message>
        <source>Note names</source>
        <translation>Названия нот</translation>
    </message>
    <message>
        <source>Calibration down</source>
        <translation>Понизить калибровку</translation>
    </message>
    <message>
        <source>Calibration up</source>
        <translation>Повысить калибровку</translation>
    </message>
</context>
<context>
    <name>AboutSheet</name>
    <message>
        <source>About</source>
        <translation>О программе</translation>
    </message>
    <message>
        <source>Ukulele Tuner</source>
        <translation>Тюнер для укулеле</translation>
    </message>
    <message>
        <source>Rate the app</source>
        <translation>Оценить приложение</translation>
    </message>
    <message>
        <source>Visit the maker</source>
        <translation>Сайт разработчика</translation>
    </message>
</context>
<context>
    <name>TuningForkSheet</name>
    <message>
        <source>Tuning Fork</source>
        <translation>Камертон</translation>
    </message>
    <message>
        <source>Tap a string</source>
        <translation>Нажмите на струну</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Стоп</translation>
    </message>
    <message>
        <source>Play %1</source>
        <translation>Сыграть %1</translation>
    </message>
</context>
<context>
    <name>ChordsScreen</name>
    <message>
        <source>Back to the tuner</source>
        <translation>Назад к тюнеру</translation>
    </message>
    <message>
        <source>Root</source>
        <translation>Тоника</translation>
    </message>
    <message>
        <source>Chord type</source>
        <translation>Тип аккорда</translation>
    </message>
    <message>
        <source>Sharps or flats</source>
        <translation>Диезы или бемоли</translation>
    </message>
</context>
<context>
    <name>WebPage</name>
    <message>
        <source>Tap to start listening</source>
        <translation>Коснитесь экрана, чтобы начать слушать</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Закрыть</translation>
    </message>
    <message>
        <source>Microphone access was refused. Allow the microphone for this page in the browser's settings, then reload.</source>
        <translation>Доступ к микрофону запрещён. Разрешите микрофон для этой страницы в настройках браузера и перезагрузите её.</translation>
    </message>
    <message>
        <source>No microphone was found. Connect one, then reload the page.</source>
        <translation>Микрофон не найден. Подключите микрофон и перезагрузите страницу.</translation>
    </message>
    <message>
        <source>The microphone was disconnected. Connect one, then reload the page.</source>
        <translation>Микрофон отключён. Подключите микрофон и перезагрузите страницу.</translation>
    </message>
    <message>
        <source>This browser cannot open the microphone here. Open the page over https, or on this device at http://127.0.0.1.</source>
        <translation>Этот браузер не может открыть микрофон здесь. Откройте страницу по https или на этом устройстве по адресу http://127.0.0.1.</translation>
    </message>
    <message>
        <source>The microphone could not be opened. Close other apps that use it, then reload the page.</source>
        <translation>Не удалось открыть микрофон. Закройте другие приложения, которые его используют, и перезагрузите страницу.</translation>
    </message>
</context>
</TS>
