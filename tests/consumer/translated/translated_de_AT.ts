<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_AT">
<context>
    <name>Host</name>
    <message>
        <source>Cream</source>
        <translation>Schlag</translation>
    </message>
</context>
</TS>
