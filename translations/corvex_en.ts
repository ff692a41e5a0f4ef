<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>studio::PanelDock</name>
    <message numerus="yes">
        <source>%Ln shape(s)</source>
        <translation>
            <numerusform>%Ln shape</numerusform>
            <numerusform>%Ln shapes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln material(s)</source>
        <translation>
            <numerusform>%Ln material</numerusform>
            <numerusform>%Ln materials</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>studio::ShapeHiding</name>
    <message numerus="yes">
        <source>%Ln shape(s)</source>
        <translation>
            <numerusform>%Ln shape</numerusform>
            <numerusform>%Ln shapes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>studio::OutlinerModel</name>
    <message numerus="yes">
        <source>%1, on %Ln shape(s)</source>
        <translation>
            <numerusform>%1, on %Ln shape</numerusform>
            <numerusform>%1, on %Ln shapes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>studio::OutlinerView</name>
    <message numerus="yes">
        <source>%Ln shape(s)</source>
        <translation>
            <numerusform>%Ln shape</numerusform>
            <numerusform>%Ln shapes</numerusform>
        </translation>
    </message>
</context>
</TS>
