<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message numerus="yes">
        <source>%Ln found</source>
        <translation>
            <numerusform>%Ln found</numerusform>
            <numerusform>%Ln found</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The dates of %Ln tasks are past: they are due at once.</source>
        <translation>
            <numerusform>The date of %Ln task is past: it is due at once.</numerusform>
            <numerusform>The dates of %Ln tasks are past: they are due at once.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::ClientsPage</name>
    <message numerus="yes">
        <source>%Ln notifications, %L1 of them still to come</source>
        <translation>
            <numerusform>%Ln notification, %L1 of them still to come</numerusform>
            <numerusform>%Ln notifications, %L1 of them still to come</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::WeeksCard</name>
    <message numerus="yes">
        <source>Weeks ahead, %Ln notifications in 12 weeks</source>
        <translation>
            <numerusform>Weeks ahead, %Ln notification in 12 weeks</numerusform>
            <numerusform>Weeks ahead, %Ln notifications in 12 weeks</numerusform>
        </translation>
    </message>
</context>
</TS>
