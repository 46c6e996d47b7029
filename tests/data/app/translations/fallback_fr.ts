<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>Fallback</name>
    <message>
        <source>In both</source>
        <translation>Dans les deux</translation>
    </message>
</context>
</TS>
