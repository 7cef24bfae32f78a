<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>Host</name>
    <message>
        <source>Cream</source>
        <translation>Sahne</translation>
    </message>
</context>
</TS>
