<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>KestIPAddressEdit</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
</context>
<context>
    <name>KestLoadingDialog</name>
    <message>
        <source>LoadingDialog</source>
        <extracomment>What the overlay over a busy window is called. It is shown nowhere.</extracomment>
        <translation>Bitte warten</translation>
    </message>
    <message>
        <source>Please wait</source>
        <extracomment>What a screen reader says when the overlay covers a busy window</extracomment>
        <translation>Bitte warten</translation>
    </message>
</context>
<context>
    <name>KestNavigationBar</name>
    <message>
        <source>Help</source>
        <extracomment>What a screen reader calls the entry that opens the help</extracomment>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>KestTitleBar</name>
    <message>
        <source>QFramelessTitleWidget</source>
        <extracomment>What the title bar itself is called. It is shown nowhere.</extracomment>
        <translation>Titelleiste</translation>
    </message>
    <message>
        <source>Close</source>
        <extracomment>What a screen reader calls the button that closes the window</extracomment>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Minimize</source>
        <extracomment>What a screen reader calls the button that minimises the window</extracomment>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Maximieren</translation>
    </message>
    <message>
        <source>Title bar</source>
        <extracomment>What a screen reader calls the title bar</extracomment>
        <translation>Titelleiste</translation>
    </message>
    <message>
        <source>Restore</source>
        <extracomment>What a screen reader calls the button of a maximised window that restores it</extracomment>
        <translation>Wiederherstellen</translation>
    </message>
</context>
</TS>
