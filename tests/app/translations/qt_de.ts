<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>KestApplicationTest</name>
    <message>
        <source>toolkit</source>
        <translation>Werkzeug</translation>
    </message>
    <message>
        <source>both</source>
        <translation>im Werkzeug</translation>
    </message>
</context>
</TS>
