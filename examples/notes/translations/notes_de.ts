<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>NotesWindow</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Sprache</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>Begin a new note</source>
        <translation>Eine neue Notiz anfangen</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>Eine neue Notiz anfangen</translation>
    </message>
    <message>
        <source>Save the note</source>
        <translation>Die Notiz speichern</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>Die Notiz speichern</translation>
    </message>
    <message>
        <source>Delete the note</source>
        <translation>Die Notiz löschen</translation>
    </message>
    <message>
        <source>&amp;Back up</source>
        <translation>Die Notiz löschen</translation>
    </message>
    <message>
        <source>Copy all notes into the folder &quot;backup&quot;</source>
        <translation>Alle Notizen in den Ordner „backup“ kopieren</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>Alle Notizen in den Ordner „backup“ kopieren</translation>
    </message>
    <message>
        <source>Close the window</source>
        <translation>Das Fenster schließen</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>Das Fenster schließen</translation>
    </message>
    <message>
        <source>Take the last change back</source>
        <translation>Die letzte Änderung zurücknehmen</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>Die letzte Änderung zurücknehmen</translation>
    </message>
    <message>
        <source>Make the change again</source>
        <translation>Die Änderung noch einmal machen</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>Die Änderung noch einmal machen</translation>
    </message>
    <message>
        <source>Show the notes with a word in the title</source>
        <translation>Notizen mit einem Wort im Titel zeigen</translation>
    </message>
    <message>
        <source>&amp;Wrap lines</source>
        <translation>Notizen mit einem Wort im Titel zeigen</translation>
    </message>
    <message>
        <source>Break lines at the edge of the window</source>
        <translation>Zeilen am Fensterrand umbrechen</translation>
    </message>
    <message>
        <source>The &amp;system&apos;s</source>
        <translation>Zeilen am Fensterrand umbrechen</translation>
    </message>
    <message>
        <source>The language of the system</source>
        <translation>Die Sprache des Systems</translation>
    </message>
    <message>
        <source>&amp;About Notes</source>
        <translation>Die Sprache des Systems</translation>
    </message>
    <message>
        <source>Tell what this program is</source>
        <translation>Sagen, was das für ein Programm ist</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Title of the note</source>
        <translation>Titel der Notiz</translation>
    </message>
    <message>
        <source>Write something</source>
        <translation>Schreiben Sie etwas</translation>
    </message>
    <message>
        <source>Text of the note</source>
        <translation>Text der Notiz</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>Search titles</source>
        <translation>Titel durchsuchen</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>The note could not be saved.</source>
        <translation>Die Notiz konnte nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>Gespeichert</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot; for ever?</source>
        <translation>„%1“ endgültig löschen?</translation>
    </message>
    <message>
        <source>Notes backed up: %1</source>
        <translation>Gesicherte Notizen: %1</translation>
    </message>
    <message>
        <source>About Notes</source>
        <translation>Über Notizen</translation>
    </message>
    <message>
        <source>&lt;b&gt;Notes&lt;/b&gt;&lt;p&gt;A small program made with KestWidgets, to copy from.&lt;/p&gt;</source>
        <translation>&lt;b&gt;Notizen&lt;/b&gt;&lt;p&gt;Ein kleines Programm mit KestWidgets, zum Abschreiben.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Unsaved changes</source>
        <translation>Nicht gespeicherte Änderungen</translation>
    </message>
    <message>
        <source>Save the changes of this note?</source>
        <translation>Die Änderungen an dieser Notiz speichern?</translation>
    </message>
    <message>
        <source>%1[*] - Notes</source>
        <translation>%1[*] - Notizen</translation>
    </message>
    <message>
        <source>New note</source>
        <translation>Neue Notiz</translation>
    </message>
    <message>
        <source>Words: %1</source>
        <translation>Wörter: %1</translation>
    </message>
</context>
</TS>
