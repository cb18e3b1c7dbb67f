<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>CStr</name>
    <message>
        <source>Stream ERROR while reading value &quot;%1&quot; : The data stream has read past the end of the data.</source>
        <translation>Stream error while reading value &quot;%1&quot;: the data stream has read past the end of the data.</translation>
    </message>
    <message>
        <source>Stream ERROR while reading value &quot;%1&quot; : The data stream has read corrupt data.</source>
        <translation>Stream error while reading value &quot;%1&quot;: the data stream has read corrupt data.</translation>
    </message>
    <message>
        <source>Stream ERROR while reading value &quot;%1&quot; : Unknown stream status.</source>
        <translation>Stream error while reading value &quot;%1&quot;: unknown stream status.</translation>
    </message>
</context>
<context>
    <name>CTar</name>
    <message>
        <source>ERROR : The file ist too short. Only %1 bytes read but %2 expected !</source>
        <translation>Error: the file is too short. Only %1 bytes read, but %2 expected.</translation>
    </message>
    <message>
        <source>ERROR : This is not a tar archive. Header.magic = &quot;%1&quot; but &quot;ustar&quot; was expected !</source>
        <translation>Error: this is not a tar archive. Header.magic = &quot;%1&quot;, but &quot;ustar&quot; was expected.</translation>
    </message>
    <message>
        <source>ERROR: You must open an archive first !</source>
        <translation>Error: open an archive first.</translation>
    </message>
    <message>
        <source>ERROR: Index %1 must be between the limits 0 and %2. !</source>
        <translation>Error: index %1 must be between the limits 0 and %2.</translation>
    </message>
    <message>
        <source>ERROR: %1 bytes read but %2 are expected !</source>
        <translation>Error: %1 bytes read, but %2 are expected.</translation>
    </message>
    <message>
        <source>ERROR : This is not a regular file !</source>
        <translation>Error: this is not a regular file.</translation>
    </message>
</context>
</TS>
