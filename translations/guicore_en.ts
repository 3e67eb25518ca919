<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
<context>
    <name>DateBuilder</name>
    <message>
        <source>January</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>February</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>March</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>April</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>May</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>June</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>July</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>August</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>September</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>October</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>November</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>December</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ToothNameGenerator</name>
    <message>
        <source>Right third molar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Right second molar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Right first molar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Right second premolar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Right first premolar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Right canine</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Right lateral incisor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Right central incisor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left central incisor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left lateral incisor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left canine</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left first premolar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left second premolar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left first molar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left second molar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left third molar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>upper jaw</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>lower jaw</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>jaw</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Universal numbering</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>FDI numbering</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tooth </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Teeth </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1-%2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
