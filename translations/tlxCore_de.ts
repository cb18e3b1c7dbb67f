<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>CStr</name>
    <message>
        <source>Stream ERROR while reading value &quot;%1&quot; : The data stream has read past the end of the data.</source>
        <translation>Stream-FEHLER beim Lesen des Wertes &quot;%1&quot; : Der Datenstrom wurde über das Ende der Daten hinaus gelesen.</translation>
    </message>
    <message>
        <source>Stream ERROR while reading value &quot;%1&quot; : The data stream has read corrupt data.</source>
        <translation>Stream-FEHLER beim Lesen des Wertes &quot;%1&quot; : Der Datenstrom enthält beschädigte Daten.</translation>
    </message>
    <message>
        <source>Stream ERROR while reading value &quot;%1&quot; : Unknown stream status.</source>
        <translation>Stream-FEHLER beim Lesen des Wertes &quot;%1&quot; : Unbekannter Status des Datenstroms.</translation>
    </message>
</context>
<context>
    <name>CTar</name>
    <message>
        <source>ERROR : The file ist too short. Only %1 bytes read but %2 expected !</source>
        <translation>FEHLER : Die Datei ist zu kurz. Nur %1 Bytes gelesen, aber %2 erwartet !</translation>
    </message>
    <message>
        <source>ERROR : This is not a tar archive. Header.magic = &quot;%1&quot; but &quot;ustar&quot; was expected !</source>
        <translation>FEHLER : Dies ist kein tar-Archiv. Header.magic = &quot;%1&quot;, aber &quot;ustar&quot; wurde erwartet !</translation>
    </message>
    <message>
        <source>ERROR: You must open an archive first !</source>
        <translation>FEHLER: Zuerst muss ein Archiv geöffnet werden !</translation>
    </message>
    <message>
        <source>ERROR: Index %1 must be between the limits 0 and %2. !</source>
        <translation>FEHLER: Index %1 muss zwischen den Grenzen 0 und %2 liegen. !</translation>
    </message>
    <message>
        <source>ERROR: %1 bytes read but %2 are expected !</source>
        <translation>FEHLER: %1 Bytes gelesen, aber %2 werden erwartet !</translation>
    </message>
    <message>
        <source>ERROR : This is not a regular file !</source>
        <translation>FEHLER : Dies ist keine normale Datei !</translation>
    </message>
</context>
</TS>
