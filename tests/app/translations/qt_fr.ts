<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>KestApplicationTest</name>
    <message>
        <source>toolkit</source>
        <translation>outillage</translation>
    </message>
</context>
</TS>
