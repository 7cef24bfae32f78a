<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>KestApplicationTest</name>
    <message>
        <source>host</source>
        <translation>Wirt</translation>
    </message>
    <message>
        <source>both</source>
        <translation>beim Wirt</translation>
    </message>
</context>
</TS>
