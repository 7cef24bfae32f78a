<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_AT">
<context>
    <name>KestApplicationTest</name>
    <message>
        <source>host</source>
        <translation>Beisl</translation>
    </message>
</context>
</TS>
