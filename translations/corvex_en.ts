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
<context>
    <name>studio::LibraryBrowser</name>
    <message numerus="yes">
        <source>Search %Ln material(s)</source>
        <translation>
            <numerusform>Search %Ln material</numerusform>
            <numerusform>Search %Ln materials</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Search %Ln texture(s)</source>
        <translation>
            <numerusform>Search %Ln texture</numerusform>
            <numerusform>Search %Ln textures</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>studio::PanelLibraries</name>
    <message numerus="yes">
        <source>%Ln material(s)</source>
        <translation>
            <numerusform>%Ln material</numerusform>
            <numerusform>%Ln materials</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln texture(s)</source>
        <translation>
            <numerusform>%Ln texture</numerusform>
            <numerusform>%Ln textures</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) were not added:</source>
        <translation>
            <numerusform>%Ln file was not added:</numerusform>
            <numerusform>%Ln files were not added:</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>studio::PropertiesDialog</name>
    <message numerus="yes">
        <source>%Ln entries of the library</source>
        <translation>
            <numerusform>%Ln entry of the library</numerusform>
            <numerusform>%Ln entries of the library</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>studio::SceneMaterials</name>
    <message numerus="yes">
        <source>%Ln shape(s)</source>
        <translation>
            <numerusform>%Ln shape</numerusform>
            <numerusform>%Ln shapes</numerusform>
        </translation>
    </message>
</context>
</TS>
