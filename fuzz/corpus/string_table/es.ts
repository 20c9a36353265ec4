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
</context>
</TS>
