<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
<context>
    <name>nubo::PermissionsSettingsPage</name>
    <message numerus="yes">
        <source>Available: %1 and %n more.</source>
        <translation>
            <numerusform>Available: %1 and %n more.</numerusform>
            <numerusform>Available: %1 and %n more.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nubo::ShotEditorWindow</name>
    <message numerus="yes">
        <source>Copied %n word(s)</source>
        <translation>
            <numerusform>Copied %n word</numerusform>
            <numerusform>Copied %n words</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) hidden</source>
        <translation>
            <numerusform>%n item hidden</numerusform>
            <numerusform>%n items hidden</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nubo::ShotFeature</name>
    <message numerus="yes">
        <source>Copied %n word(s)</source>
        <translation>
            <numerusform>Copied %n word</numerusform>
            <numerusform>Copied %n words</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nubo::ShotSettingsBackup</name>
    <message numerus="yes">
        <source>%n setting(s) restored.</source>
        <translation>
            <numerusform>%n setting restored.</numerusform>
            <numerusform>%n settings restored.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nubo::ShotStatusMenu</name>
    <message numerus="yes">
        <source>%n second(s)</source>
        <translation>
            <numerusform>%n second</numerusform>
            <numerusform>%n seconds</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nubo::TrayApplication</name>
    <message numerus="yes">
        <source>%n shortcut(s) do not work</source>
        <translation>
            <numerusform>A shortcut does not work</numerusform>
            <numerusform>%n shortcuts do not work</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n upload(s) were interrupted</source>
        <translation>
            <numerusform>An upload was interrupted</numerusform>
            <numerusform>%n uploads were interrupted</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Nubo Shot — capturing in %n second(s)</source>
        <translation>
            <numerusform>Nubo Shot — capturing in %n second</numerusform>
            <numerusform>Nubo Shot — capturing in %n seconds</numerusform>
        </translation>
    </message>
</context>
</TS>
