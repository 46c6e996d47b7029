<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>Fallback</name>
    <message>
        <source>In both</source>
        <translation>In beiden</translation>
    </message>
    <message>
        <source>Only in German</source>
        <translation>Nur auf Deutsch</translation>
    </message>
</context>
</TS>
