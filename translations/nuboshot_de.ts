<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>nubo::BackupSettingsPage</name>
    <message>
        <source>Settings file</source>
        <translation>Einstellungsdatei</translation>
    </message>
    <message>
        <source>Back Up Settings…</source>
        <translation>Einstellungen sichern…</translation>
    </message>
    <message>
        <source>Restore Settings…</source>
        <translation>Einstellungen wiederherstellen…</translation>
    </message>
    <message>
        <source>Back Up Settings</source>
        <translation>Einstellungen sichern</translation>
    </message>
    <message>
        <source>Settings backups (*.json)</source>
        <translation>Einstellungssicherungen (*.json)</translation>
    </message>
    <message>
        <source>Restore Settings</source>
        <translation>Einstellungen wiederherstellen</translation>
    </message>
    <message>
        <source>Settings backups (*.json);;All files (*)</source>
        <translation>Einstellungssicherungen (*.json);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Settings backed up to “%1”.</source>
        <translation>Einstellungen in „%1“ gesichert.</translation>
    </message>
    <message>
        <source>Every preference goes into one file you can keep or take to another computer. Passwords and keys never do: they stay in the desktop&apos;s keyring.</source>
        <translation>Alle Einstellungen kommen in eine Datei, die Sie aufbewahren oder auf einen anderen Computer mitnehmen können. Passwörter und Schlüssel nie: Sie bleiben im Schlüsselbund der Arbeitsumgebung.</translation>
    </message>
</context>
<context>
    <name>nubo::CameraStreamSource</name>
    <message>
        <source>The camera “%1” is not connected.</source>
        <translation>Die Kamera „%1“ ist nicht angeschlossen.</translation>
    </message>
    <message>
        <source>The camera “%1” cannot be opened: %2.</source>
        <translation>Die Kamera „%1“ lässt sich nicht öffnen: %2.</translation>
    </message>
    <message>
        <source>The camera “%1” gives no pictures: %2.</source>
        <translation>Die Kamera „%1“ liefert keine Bilder: %2.</translation>
    </message>
    <message>
        <source>The camera “%1” gives no pictures that can be read.</source>
        <translation>Die Kamera „%1“ liefert keine lesbaren Bilder.</translation>
    </message>
    <message>
        <source>The camera&apos;s pictures (%1) cannot be decoded: %2.</source>
        <translation>Die Bilder der Kamera (%1) lassen sich nicht dekodieren: %2.</translation>
    </message>
    <message>
        <source>The camera stopped: %1.</source>
        <translation>Die Kamera hat angehalten: %1.</translation>
    </message>
</context>
<context>
    <name>nubo::CapturePlatformLoader</name>
    <message>
        <source>No X display to capture: DISPLAY is not set.</source>
        <translation>Keine X-Anzeige zum Aufnehmen: DISPLAY ist nicht gesetzt.</translation>
    </message>
    <message>
        <source>The X display “%1” (DISPLAY) cannot be reached.</source>
        <translation>Die X-Anzeige „%1“ (DISPLAY) ist nicht erreichbar.</translation>
    </message>
    <message>
        <source>This Wayland desktop has no screen-cast portal to capture through: install the desktop&apos;s portal backend (xdg-desktop-portal-gnome, -kde or -wlr) and log in again.</source>
        <translation>Diese Wayland-Arbeitsumgebung hat kein Bildschirmübertragungs-Portal für Aufnahmen: Installieren Sie das Portal-Backend der Arbeitsumgebung (xdg-desktop-portal-gnome, -kde oder -wlr) und melden Sie sich neu an.</translation>
    </message>
    <message>
        <source>There is no capture backend “%1” (%2); this build has: %3.</source>
        <translation>Es gibt kein Aufnahme-Backend „%1“ (%2); dieser Build hat: %3.</translation>
    </message>
    <message>
        <source>No display to capture: neither DISPLAY nor WAYLAND_DISPLAY is set.</source>
        <translation>Keine Anzeige zum Aufnehmen: Weder DISPLAY noch WAYLAND_DISPLAY ist gesetzt.</translation>
    </message>
</context>
<context>
    <name>nubo::CaptureTypes</name>
    <message>
        <source>Screen Recording permission is required.</source>
        <translation>Die Berechtigung für Bildschirmaufnahmen ist erforderlich.</translation>
    </message>
    <message>
        <source>Capture was cancelled.</source>
        <translation>Die Aufnahme wurde abgebrochen.</translation>
    </message>
    <message>
        <source>No screen content is available.</source>
        <translation>Kein Bildschirminhalt verfügbar.</translation>
    </message>
</context>
<context>
    <name>nubo::EditorSettingsPage</name>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Return to Select after drawing</source>
        <translation>Nach dem Zeichnen zu „Auswählen“ zurückkehren</translation>
    </message>
    <message>
        <source>Colour and size of new marks</source>
        <translation>Farbe und Größe neuer Markierungen</translation>
    </message>
    <message>
        <source>Colour…</source>
        <translation>Farbe…</translation>
    </message>
    <message>
        <source> pt</source>
        <translation> pt</translation>
    </message>
    <message>
        <source>Blur / Censor</source>
        <translation>Verpixeln / Schwärzen</translation>
    </message>
    <message>
        <source>%1 Colour</source>
        <translation>Farbe: %1</translation>
    </message>
    <message>
        <source>Draw and Number stay active, for one stroke or number after another.</source>
        <translation>„Zeichnen“ und „Nummer“ bleiben aktiv, für einen Strich oder eine Nummer nach der anderen.</translation>
    </message>
    <message>
        <source>The size of the blocks the hidden area is shown in: larger blocks show less.</source>
        <translation>Die Größe der Blöcke, in denen der verdeckte Bereich erscheint: Größere Blöcke zeigen weniger.</translation>
    </message>
    <message>
        <source>Strength:</source>
        <translation>Stärke:</translation>
    </message>
    <message>
        <source>Text in shots</source>
        <translation>Text in Aufnahmen</translation>
    </message>
    <message>
        <source>Languages:</source>
        <translation>Sprachen:</translation>
    </message>
    <message>
        <source>Copy Text and Capture Text read these. With none ticked, the desktop&apos;s language and English. More come with the packages tesseract-ocr-LANGUAGE.</source>
        <translation>„Text kopieren“ und „Text aufnehmen“ lesen diese Sprachen. Ist keine angehakt, die Sprache der Arbeitsumgebung und Englisch. Weitere bringen die Pakete tesseract-ocr-SPRACHE.</translation>
    </message>
</context>
<context>
    <name>nubo::EmojiCatalog</name>
    <message>
        <source>Everyday</source>
        <translation>Alltäglich</translation>
    </message>
    <message>
        <source>Only a few emoji are offered: %1 cannot be read (%2). Install the package unicode-data for all of them.</source>
        <translation>Nur wenige Emoji stehen zur Wahl: %1 kann nicht gelesen werden (%2). Installieren Sie das Paket unicode-data für alle.</translation>
    </message>
    <message>
        <source>Only a few emoji are offered: %1 lists none. Reinstall the package unicode-data.</source>
        <translation>Nur wenige Emoji stehen zur Wahl: %1 enthält keine. Installieren Sie das Paket unicode-data neu.</translation>
    </message>
</context>
<context>
    <name>nubo::GeneralSettingsPage</name>
    <message>
        <source>Start-up</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Start Nubo Shot when I log in</source>
        <translation>Nubo Shot bei der Anmeldung starten</translation>
    </message>
    <message>
        <source>Shots</source>
        <translation>Aufnahmen</translation>
    </message>
    <message>
        <source>Show Recent in menu</source>
        <translation>„Zuletzt verwendet“ im Menü zeigen</translation>
    </message>
    <message>
        <source>Include the pointer</source>
        <translation>Mauszeiger einbeziehen</translation>
    </message>
    <message>
        <source>Adjust the area before capturing</source>
        <translation>Bereich vor der Aufnahme anpassen</translation>
    </message>
    <message>
        <source>Also copy raw shot</source>
        <translation>Unbearbeitete Aufnahme auch kopieren</translation>
    </message>
    <message>
        <source>On Wayland a program sees the clipboard only while one of its windows has the keyboard: images copied in other applications join Recent the next time you use Nubo Shot.</source>
        <translation>Unter Wayland sieht ein Programm die Zwischenablage nur, solange eines seiner Fenster den Tastaturfokus hat: In anderen Anwendungen kopierte Bilder kommen bei der nächsten Verwendung von Nubo Shot zu „Zuletzt verwendet“.</translation>
    </message>
    <message>
        <source>A dragged area keeps its handles: move it with the arrow keys, resize it with Alt and the arrow keys, and press Return or double-click it to capture.</source>
        <translation>Ein gezogener Bereich behält seine Griffe: Verschieben Sie ihn mit den Pfeiltasten, ändern Sie die Größe mit Alt und den Pfeiltasten, und drücken Sie die Eingabetaste oder doppelklicken Sie für die Aufnahme.</translation>
    </message>
    <message>
        <source>Puts every capture on the clipboard at once, before anything is drawn on it.</source>
        <translation>Legt jede Aufnahme sofort in die Zwischenablage, bevor etwas darauf gezeichnet wird.</translation>
    </message>
</context>
<context>
    <name>nubo::ImageWriter</name>
    <message>
        <source>Could not write “%1”: %2.</source>
        <translation>„%1“ konnte nicht geschrieben werden: %2.</translation>
    </message>
</context>
<context>
    <name>nubo::LevelMeter</name>
    <message>
        <source>Microphone level</source>
        <translation>Mikrofonpegel</translation>
    </message>
</context>
<context>
    <name>nubo::OutputSettingsPage</name>
    <message>
        <source>Quick save</source>
        <translation>Schnellspeichern</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Auswählen…</translation>
    </message>
    <message>
        <source>Use Downloads</source>
        <translation>„Downloads“ verwenden</translation>
    </message>
    <message>
        <source>Quick-Save Folder</source>
        <translation>Ordner für Schnellspeichern</translation>
    </message>
    <message>
        <source>File names:</source>
        <translation>Dateinamen:</translation>
    </message>
    <message>
        <source>Close the editor after</source>
        <translation>Editor schließen nach</translation>
    </message>
    <message>
        <source>Copying</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Saving</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Dragging out</source>
        <translation>Herausziehen</translation>
    </message>
    <message>
        <source>Hold Alt, or pin the editor, to keep it open once.</source>
        <translation>Halten Sie Alt gedrückt oder heften Sie den Editor an, um ihn einmal offen zu halten.</translation>
    </message>
    <message>
        <source>No folder chosen: shots go to Downloads.</source>
        <translation>Kein Ordner gewählt: Aufnahmen kommen in „Downloads“.</translation>
    </message>
    <message>
        <source>A second shot in the same second gets “ (2)”, and so on: no file is ever replaced.</source>
        <translation>Eine zweite Aufnahme in derselben Sekunde erhält „ (2)“ usw.: Keine Datei wird je ersetzt.</translation>
    </message>
    <message>
        <source>“%1” is missing or cannot be written to: shots go to Downloads until it is back.</source>
        <translation>„%1“ fehlt oder ist nicht beschreibbar: Aufnahmen kommen in „Downloads“, bis er wieder da ist.</translation>
    </message>
    <message>
        <source>Folder:</source>
        <translation>Ordner:</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>Format:</translation>
    </message>
</context>
<context>
    <name>nubo::PermissionsSettingsPage</name>
    <message>
        <source>What Nubo Shot may use</source>
        <translation>Was Nubo Shot verwenden darf</translation>
    </message>
    <message>
        <source>Screen capture</source>
        <translation>Bildschirmaufnahme</translation>
    </message>
    <message>
        <source>Forget Grant</source>
        <translation>Freigabe vergessen</translation>
    </message>
    <message>
        <source>The desktop asks again at the next capture</source>
        <translation>Die Arbeitsumgebung fragt bei der nächsten Aufnahme erneut</translation>
    </message>
    <message>
        <source>Global shortcuts</source>
        <translation>Globale Tastenkürzel</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>Mikrofon</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation>Benachrichtigungen</translation>
    </message>
    <message>
        <source>Keyring</source>
        <translation>Schlüsselbund</translation>
    </message>
    <message>
        <source>Check Again</source>
        <translation>Erneut prüfen</translation>
    </message>
    <message>
        <source>Allowed: this X11 desktop lets programs read the screen.</source>
        <translation>Erlaubt: Diese X11-Arbeitsumgebung lässt Programme den Bildschirm lesen.</translation>
    </message>
    <message>
        <source>Available through the sound server.</source>
        <translation>Über den Soundserver verfügbar.</translation>
    </message>
    <message>
        <source>Available: %1.</source>
        <translation>Verfügbar: %1.</translation>
    </message>
    <message>
        <source>Shown by the desktop&apos;s notification service.</source>
        <translation>Werden vom Benachrichtigungsdienst der Arbeitsumgebung angezeigt.</translation>
    </message>
    <message>
        <source>Granted through the desktop&apos;s screen-sharing dialog; captures do not ask again.</source>
        <translation>Über den Bildschirmfreigabe-Dialog der Arbeitsumgebung erteilt; Aufnahmen fragen nicht erneut.</translation>
    </message>
    <message>
        <source>Not yet granted: the desktop shows its screen-sharing dialog at the next capture. Choose every screen and allow it to be remembered.</source>
        <translation>Noch nicht erteilt: Die Arbeitsumgebung zeigt bei der nächsten Aufnahme ihren Bildschirmfreigabe-Dialog. Wählen Sie alle Bildschirme und erlauben Sie, dass die Wahl gespeichert wird.</translation>
    </message>
    <message>
        <source>Bound: the keys on the Shortcuts page work wherever the focus is.</source>
        <translation>Zugewiesen: Die Tasten auf der Seite „Tastenkürzel“ funktionieren überall.</translation>
    </message>
    <message>
        <source>This desktop gives programs no global keys: bind the commands of the Shortcuts page in the desktop&apos;s keyboard settings.</source>
        <translation>Diese Arbeitsumgebung gibt Programmen keine globalen Tasten: Weisen Sie die Befehle der Seite „Tastenkürzel“ in den Tastatureinstellungen der Arbeitsumgebung zu.</translation>
    </message>
    <message>
        <source>No camera can be opened: connect one, and make sure your user is in the “video” group.</source>
        <translation>Keine Kamera lässt sich öffnen: Schließen Sie eine an und stellen Sie sicher, dass Ihr Benutzer in der Gruppe „video“ ist.</translation>
    </message>
    <message numerus="yes">
        <source>Available: %1 and %n more.</source>
        <translation>
            <numerusform>Verfügbar: %1 und %n weitere.</numerusform>
            <numerusform>Verfügbar: %1 und %n weitere.</numerusform>
        </translation>
    </message>
    <message>
        <source>No notification service: messages appear as the tray icon&apos;s bubbles instead.</source>
        <translation>Kein Benachrichtigungsdienst: Meldungen erscheinen stattdessen als Sprechblasen des Symbols im Benachrichtigungsbereich.</translation>
    </message>
    <message>
        <source>The desktop&apos;s keyring (Secret Service) keeps upload secrets.</source>
        <translation>Der Schlüsselbund der Arbeitsumgebung (Secret Service) bewahrt die Upload-Geheimnisse auf.</translation>
    </message>
    <message>
        <source>No keyring: install gnome-keyring (or a password manager offering the Secret Service) to store upload secrets.</source>
        <translation>Kein Schlüsselbund: Installieren Sie gnome-keyring (oder eine Passwortverwaltung mit Secret Service), um Upload-Geheimnisse zu speichern.</translation>
    </message>
</context>
<context>
    <name>nubo::PortalRequest</name>
    <message>
        <source>There is no session bus to reach the desktop portal.</source>
        <translation>Es gibt keinen Sitzungsbus, um das Desktop-Portal zu erreichen.</translation>
    </message>
    <message>
        <source>The desktop portal did not answer %1 within %2 s.</source>
        <translation>Das Desktop-Portal hat %1 nicht innerhalb von %2 s beantwortet.</translation>
    </message>
</context>
<context>
    <name>nubo::PortalScreenCast</name>
    <message>
        <source>The desktop portal offers no screen casting (org.freedesktop.portal.ScreenCast).</source>
        <translation>Das Desktop-Portal bietet keine Bildschirmübertragung (org.freedesktop.portal.ScreenCast).</translation>
    </message>
    <message>
        <source>The desktop portal made no screen-cast session.</source>
        <translation>Das Desktop-Portal hat keine Übertragungssitzung angelegt.</translation>
    </message>
    <message>
        <source>The desktop portal gave no PipeWire connection.</source>
        <translation>Das Desktop-Portal hat keine PipeWire-Verbindung geliefert.</translation>
    </message>
</context>
<context>
    <name>nubo::PulseAudioCapture</name>
    <message>
        <source>The audio server cannot be reached: no event loop.</source>
        <translation>Der Audioserver ist nicht erreichbar: keine Ereignisschleife.</translation>
    </message>
    <message>
        <source>No audio server answers.</source>
        <translation>Kein Audioserver antwortet.</translation>
    </message>
    <message>
        <source>No audio server answers: %1.</source>
        <translation>Kein Audioserver antwortet: %1.</translation>
    </message>
    <message>
        <source>No audio server answers: it did not reply in time.</source>
        <translation>Kein Audioserver antwortet: Er hat nicht rechtzeitig reagiert.</translation>
    </message>
    <message>
        <source>The audio server did not answer: %1.</source>
        <translation>Der Audioserver hat nicht geantwortet: %1.</translation>
    </message>
    <message>
        <source>No sound server answers: install PipeWire (pipewire-pulse) or PulseAudio and log in again.</source>
        <translation>Kein Soundserver antwortet: Installieren Sie PipeWire (pipewire-pulse) oder PulseAudio und melden Sie sich neu an.</translation>
    </message>
    <message>
        <source>The audio source “%1” cannot be recorded: %2.</source>
        <translation>Die Audioquelle „%1“ kann nicht aufgezeichnet werden: %2.</translation>
    </message>
    <message>
        <source>The audio server has no sound output to record.</source>
        <translation>Der Audioserver hat keine Tonausgabe zum Aufzeichnen.</translation>
    </message>
    <message>
        <source>The audio server has no microphone to record.</source>
        <translation>Der Audioserver hat kein Mikrofon zum Aufzeichnen.</translation>
    </message>
</context>
<context>
    <name>nubo::RecordingSession</name>
    <message>
        <source>The folder “%1” cannot be created.</source>
        <translation>Der Ordner „%1“ kann nicht angelegt werden.</translation>
    </message>
</context>
<context>
    <name>nubo::RecordingSettingsPage</name>
    <message>
        <source>Video</source>
        <translation>Video</translation>
    </message>
    <message>
        <source>Frame rate:</source>
        <translation>Bildrate:</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Ton</translation>
    </message>
    <message>
        <source>In the recording</source>
        <translation>In der Aufnahme</translation>
    </message>
    <message>
        <source>Show the pointer</source>
        <translation>Mauszeiger zeigen</translation>
    </message>
    <message>
        <source>Highlight clicks</source>
        <translation>Klicks hervorheben</translation>
    </message>
    <message>
        <source>Camera bubble</source>
        <translation>Kamerablase</translation>
    </message>
    <message>
        <source>Count down 3 seconds before recording</source>
        <translation>Vor der Aufnahme 3 Sekunden herunterzählen</translation>
    </message>
    <message>
        <source>Saving</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Auswählen…</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Recordings folder:</source>
        <translation>Ordner für Aufnahmen:</translation>
    </message>
    <message>
        <source>Recordings Folder</source>
        <translation>Ordner für Aufnahmen</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Starts a recording, and stops the one under way.</source>
        <translation>Startet eine Aufnahme und beendet die laufende.</translation>
    </message>
    <message>
        <source> (default)</source>
        <translation> (Standard)</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>Format:</translation>
    </message>
    <message>
        <source>Resolution:</source>
        <translation>Auflösung:</translation>
    </message>
    <message>
        <source>Microphone:</source>
        <translation>Mikrofon:</translation>
    </message>
    <message>
        <source>Camera:</source>
        <translation>Kamera:</translation>
    </message>
</context>
<context>
    <name>nubo::RecordingTypes</name>
    <message>
        <source>The media encoder could not accept recording data.</source>
        <translation>Der Medienencoder konnte die Aufnahmedaten nicht annehmen.</translation>
    </message>
    <message>
        <source>The recording could not be saved. </source>
        <translation>Die Aufzeichnung konnte nicht gespeichert werden. </translation>
    </message>
    <message>
        <source>Microphone recording requires a running audio server.</source>
        <translation>Zum Aufzeichnen des Mikrofons muss ein Audioserver laufen.</translation>
    </message>
    <message>
        <source>Click highlighting requires the X Input extension.</source>
        <translation>Das Hervorheben von Klicks erfordert die X-Input-Erweiterung.</translation>
    </message>
    <message>
        <source>The selected recording codec is unavailable.</source>
        <translation>Der gewählte Aufnahme-Codec ist nicht verfügbar.</translation>
    </message>
    <message>
        <source>The recording cannot perform this action right now.</source>
        <translation>Die Aufzeichnung kann das gerade nicht tun.</translation>
    </message>
    <message>
        <source>No video frames were recorded.</source>
        <translation>Es wurden keine Videobilder aufgezeichnet.</translation>
    </message>
    <message>
        <source>Recording audio could not be processed.</source>
        <translation>Der Ton der Aufzeichnung konnte nicht verarbeitet werden.</translation>
    </message>
</context>
<context>
    <name>nubo::S3Signing</name>
    <message>
        <source>The S3 endpoint “%1” is not an http or https address.</source>
        <translation>Der S3-Endpunkt „%1“ ist keine http- oder https-Adresse.</translation>
    </message>
</context>
<context>
    <name>nubo::ShortcutsSettingsPage</name>
    <message>
        <source>Capture and record from anywhere</source>
        <translation>Von überall aufnehmen und aufzeichnen</translation>
    </message>
    <message>
        <source>Reset to Defaults</source>
        <translation>Auf Standard zurücksetzen</translation>
    </message>
    <message>
        <source>Bind keys in the desktop&apos;s settings</source>
        <translation>Tasten in den Einstellungen der Arbeitsumgebung zuweisen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Copy the command</source>
        <translation>Befehl kopieren</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
    <message>
        <source>This desktop offers no global shortcuts: they are kept for when it does.</source>
        <translation>Diese Arbeitsumgebung bietet keine globalen Tastenkürzel: Sie werden aufbewahrt, bis sie es tut.</translation>
    </message>
    <message>
        <source>Add a custom shortcut in the desktop&apos;s keyboard settings (GNOME: Settings → Keyboard → Custom Shortcuts; KDE: System Settings → Shortcuts; sway: a bindsym line) that runs the command.</source>
        <translation>Legen Sie in den Tastatureinstellungen der Arbeitsumgebung ein eigenes Tastenkürzel an (GNOME: Einstellungen → Tastatur → Eigene Tastenkürzel; KDE: Systemeinstellungen → Kurzbefehle; sway: eine bindsym-Zeile), das den Befehl ausführt.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotApplications</name>
    <message>
        <source>%1 could not be started: %2.</source>
        <translation>%1 konnte nicht gestartet werden: %2.</translation>
    </message>
    <message>
        <source>%1 cannot be started: its desktop entry %2 has an Exec line that cannot be read.</source>
        <translation>%1 kann nicht gestartet werden: Sein Desktop-Eintrag %2 hat eine unlesbare Exec-Zeile.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotBottomBar</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Copy (Ctrl+C) · Hold Alt to keep open</source>
        <translation>Kopieren (Strg+C) · Alt halten, um offen zu lassen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Save to the quick-save folder (Ctrl+S) · Hold Alt to keep open</source>
        <translation>Im Schnellspeicher-Ordner speichern (Strg+S) · Alt halten, um offen zu lassen</translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>Speichern unter…</translation>
    </message>
    <message>
        <source>Save As (Ctrl+Shift+S)</source>
        <translation>Speichern unter (Strg+Umschalt+S)</translation>
    </message>
    <message>
        <source>Open With</source>
        <translation>Öffnen mit</translation>
    </message>
    <message>
        <source>Open the shot in another application</source>
        <translation>Aufnahme in einer anderen Anwendung öffnen</translation>
    </message>
    <message>
        <source>Upload to R2</source>
        <translation>Zu R2 hochladen</translation>
    </message>
    <message>
        <source>Upload to Filebin</source>
        <translation>Zu Filebin hochladen</translation>
    </message>
    <message>
        <source>Cancel upload</source>
        <translation>Hochladen abbrechen</translation>
    </message>
    <message>
        <source>Keep this editor open after copying, saving or dragging</source>
        <translation>Diesen Editor nach Kopieren, Speichern oder Ziehen offen lassen</translation>
    </message>
    <message>
        <source>%1 (Default)</source>
        <translation>%1 (Standard)</translation>
    </message>
    <message>
        <source>No application opens PNG images</source>
        <translation>Keine Anwendung öffnet PNG-Bilder</translation>
    </message>
    <message>
        <source>Other Application…</source>
        <translation>Andere Anwendung…</translation>
    </message>
    <message>
        <source>Set up a bucket on the Uploads page of the settings first</source>
        <translation>Richten Sie zuerst auf der Seite „Uploads“ der Einstellungen einen Bucket ein</translation>
    </message>
    <message>
        <source>Filebin</source>
        <translation>Filebin</translation>
    </message>
    <message>
        <source>Sending the shot to %1</source>
        <translation>Aufnahme wird an %1 gesendet</translation>
    </message>
    <message>
        <source>Upload the shot as PNG to %1; the link is copied</source>
        <translation>Aufnahme als PNG zu %1 hochladen; der Link wird kopiert</translation>
    </message>
    <message>
        <source>your bucket</source>
        <translation>Ihren Bucket</translation>
    </message>
    <message>
        <source>Object key %1 · Click to copy it again · Set a public URL in the settings to get links</source>
        <translation>Objektschlüssel %1 · Klicken, um ihn erneut zu kopieren · Für Links eine öffentliche URL in den Einstellungen angeben</translation>
    </message>
    <message>
        <source>%1 · Click to copy the link again</source>
        <translation>%1 · Klicken, um den Link erneut zu kopieren</translation>
    </message>
    <message>
        <source>%1 · Click to try again</source>
        <translation>%1 · Klicken, um es erneut zu versuchen</translation>
    </message>
    <message>
        <source>Keep Open</source>
        <translation>Offen lassen</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>Anheften</translation>
    </message>
    <message>
        <source>Pin the shot to the screen, above other windows (Ctrl+Shift+P)</source>
        <translation>Die Aufnahme über anderen Fenstern an den Bildschirm heften (Strg+Umschalt+P)</translation>
    </message>
</context>
<context>
    <name>nubo::ShotCameraBubble</name>
    <message>
        <source>No camera is available.</source>
        <translation>Keine Kamera verfügbar.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotCameraPreview</name>
    <message>
        <source>Drag to move the camera; scroll or drag its corner to resize it</source>
        <translation>Ziehen, um die Kamera zu verschieben; scrollen oder an der Ecke ziehen, um die Größe zu ändern</translation>
    </message>
    <message>
        <source>Starting the camera…</source>
        <translation>Kamera wird gestartet…</translation>
    </message>
</context>
<context>
    <name>nubo::ShotCaptureOverlay</name>
    <message>
        <source>Drag to capture · Esc: Cancel</source>
        <translation>Ziehen zum Aufnehmen · Esc: Abbrechen</translation>
    </message>
    <message>
        <source>Drag to capture · Space: Window · Esc: Cancel</source>
        <translation>Ziehen zum Aufnehmen · Leertaste: Fenster · Esc: Abbrechen</translation>
    </message>
    <message>
        <source>Click a window · Space: Area · Esc: Cancel</source>
        <translation>Fenster anklicken · Leertaste: Bereich · Esc: Abbrechen</translation>
    </message>
    <message>
        <source>Drag to select scroll area · Esc: Cancel</source>
        <translation>Ziehen, um den Scrollbereich zu wählen · Esc: Abbrechen</translation>
    </message>
    <message>
        <source>Drag</source>
        <translation>Ziehen</translation>
    </message>
    <message>
        <source>Frame the area to record</source>
        <translation>Aufzuzeichnenden Bereich aufziehen</translation>
    </message>
    <message>
        <source>Frame an area</source>
        <translation>Bereich aufziehen</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Pick a window instead</source>
        <translation>Stattdessen ein Fenster wählen</translation>
    </message>
    <message>
        <source>Click or F</source>
        <translation>Klick oder F</translation>
    </message>
    <message>
        <source>Record the whole screen</source>
        <translation>Ganzen Bildschirm aufzeichnen</translation>
    </message>
    <message>
        <source>Arrows</source>
        <translation>Pfeiltasten</translation>
    </message>
    <message>
        <source>Move the area (Shift: 10 pt)</source>
        <translation>Bereich verschieben (Umschalt: 10 pt)</translation>
    </message>
    <message>
        <source>Alt+Arrows</source>
        <translation>Alt+Pfeiltasten</translation>
    </message>
    <message>
        <source>Resize the area</source>
        <translation>Bereichsgröße ändern</translation>
    </message>
    <message>
        <source>Return, Double-Click</source>
        <translation>Eingabetaste, Doppelklick</translation>
    </message>
    <message>
        <source>Record the area</source>
        <translation>Bereich aufzeichnen</translation>
    </message>
    <message>
        <source>Capture the area</source>
        <translation>Bereich aufnehmen</translation>
    </message>
    <message>
        <source>Release</source>
        <translation>Loslassen</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Click here to hide this for good</source>
        <translation>Hier klicken, um dies dauerhaft auszublenden</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Drag the area or its handles · Arrows: Move · Alt+Arrows: Resize · Shift: 10 pt · Return or Double-Click: Record · Esc: Cancel</source>
        <translation>Bereich oder Griffe ziehen · Pfeiltasten: Verschieben · Alt+Pfeiltasten: Größe · Umschalt: 10 pt · Eingabetaste oder Doppelklick: Aufzeichnen · Esc: Abbrechen</translation>
    </message>
    <message>
        <source>Drag the area or its handles · Arrows: Move · Alt+Arrows: Resize · Shift: 10 pt · Return or Double-Click: Capture · Esc: Cancel</source>
        <translation>Bereich oder Griffe ziehen · Pfeiltasten: Verschieben · Alt+Pfeiltasten: Größe · Umschalt: 10 pt · Eingabetaste oder Doppelklick: Aufnehmen · Esc: Abbrechen</translation>
    </message>
    <message>
        <source>Drag an area to record · Click or F: Whole Screen · Space: Pick a Window · Esc: Cancel</source>
        <translation>Bereich zum Aufzeichnen ziehen · Klick oder F: Ganzer Bildschirm · Leertaste: Fenster wählen · Esc: Abbrechen</translation>
    </message>
    <message>
        <source>Drag to capture · Space: Pick a Window · Esc: Cancel</source>
        <translation>Ziehen zum Aufnehmen · Leertaste: Fenster wählen · Esc: Abbrechen</translation>
    </message>
    <message>
        <source>Drag an area to record · Click or F: Whole Screen · Esc: Cancel</source>
        <translation>Bereich zum Aufzeichnen ziehen · Klick oder F: Ganzer Bildschirm · Esc: Abbrechen</translation>
    </message>
    <message>
        <source>Drag an area to record · Click or F: Whole Screen · Space: Window · Esc: Cancel</source>
        <translation>Bereich zum Aufzeichnen ziehen · Klick oder F: Ganzer Bildschirm · Leertaste: Fenster · Esc: Abbrechen</translation>
    </message>
    <message>
        <source>Click a window to record · Space: Area · F: Whole Screen · Esc: Cancel</source>
        <translation>Fenster zum Aufzeichnen anklicken · Leertaste: Bereich · F: Ganzer Bildschirm · Esc: Abbrechen</translation>
    </message>
    <message>
        <source>Drag to select scroll area, scroll it to its end, then choose Capture Scrolling again · Esc: Cancel</source>
        <translation>Scrollbereich aufziehen, bis zum Ende scrollen, dann erneut „Scrollend aufnehmen“ wählen · Esc: Abbrechen</translation>
    </message>
    <message>
        <source>P</source>
        <translation>P</translation>
    </message>
    <message>
        <source>Pin it to the screen</source>
        <translation>An den Bildschirm heften</translation>
    </message>
</context>
<context>
    <name>nubo::ShotClipboard</name>
    <message>
        <source>The screenshot could not be put on the clipboard. %1</source>
        <translation>Die Bildschirmaufnahme konnte nicht in die Zwischenablage gelegt werden. %1</translation>
    </message>
</context>
<context>
    <name>nubo::ShotCropBar</name>
    <message>
        <source>Free</source>
        <translation>Frei</translation>
    </message>
    <message>
        <source>Square</source>
        <translation>Quadrat</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Zuschneiden</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>nubo::ShotDocument</name>
    <message>
        <source>There is not enough memory for an image of %1 × %2 pixels.</source>
        <translation>Es ist nicht genug Speicher für ein Bild mit %1 × %2 Pixeln frei.</translation>
    </message>
    <message>
        <source>An image of the shot is missing (there may not have been enough memory for it).</source>
        <translation>Ein Bild der Aufnahme fehlt (möglicherweise war nicht genug Speicher frei).</translation>
    </message>
    <message>
        <source>An image of %1 × %2 pixels is too large: Nubo Shot takes images of up to %L3 pixels, none wider or taller than %L4.</source>
        <translation>Ein Bild mit %1 × %2 Pixeln ist zu groß: Nubo Shot nimmt Bilder bis %L3 Pixel an, keines breiter oder höher als %L4.</translation>
    </message>
    <message>
        <source>The images of this shot would hold %L1 pixels together; a shot holds at most %L2.</source>
        <translation>Die Bilder dieser Aufnahme hätten zusammen %L1 Pixel; eine Aufnahme fasst höchstens %L2.</translation>
    </message>
    <message>
        <source>The shot would be %L1 × %L2 points; it may be at most %L3 points wide and tall.</source>
        <translation>Die Aufnahme wäre %L1 × %L2 Punkte groß; sie darf höchstens %L3 Punkte breit und hoch sein.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotDragHandle</name>
    <message>
        <source>Drag Me</source>
        <translation>Zieh mich</translation>
    </message>
    <message>
        <source>Drag PNG · Hold Alt at drop to keep open</source>
        <translation>PNG ziehen · Beim Ablegen Alt halten, um offen zu lassen</translation>
    </message>
</context>
<context>
    <name>nubo::ShotEditorModel</name>
    <message>
        <source>There is not enough memory to add an image of %1 × %2 pixels.</source>
        <translation>Es ist nicht genug Speicher frei, um ein Bild mit %1 × %2 Pixeln einzufügen.</translation>
    </message>
    <message>
        <source>There is no image to add (it could not be read, or it is larger than Nubo Shot takes).</source>
        <translation>Es gibt kein Bild zum Einfügen (es ließ sich nicht lesen oder ist größer, als Nubo Shot annimmt).</translation>
    </message>
</context>
<context>
    <name>nubo::ShotEditorWindow</name>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Ausgabe</translation>
    </message>
    <message>
        <source>Width %1 pt</source>
        <translation>Breite %1 pt</translation>
    </message>
    <message>
        <source>Size %1 pt</source>
        <translation>Größe %1 pt</translation>
    </message>
    <message>
        <source>Strength %1</source>
        <translation>Stärke %1</translation>
    </message>
    <message>
        <source>A text holds at most %L1 characters.</source>
        <translation>Ein Text fasst höchstens %L1 Zeichen.</translation>
    </message>
    <message>
        <source>Add Image</source>
        <translation>Bild einfügen</translation>
    </message>
    <message>
        <source>Images (*.png *.jpg *.jpeg *.webp *.bmp *.gif)</source>
        <translation>Bilder (*.png *.jpg *.jpeg *.webp *.bmp *.gif)</translation>
    </message>
    <message>
        <source>Could Not Add Image</source>
        <translation>Bild konnte nicht eingefügt werden</translation>
    </message>
    <message>
        <source>Select annotations to cut them</source>
        <translation>Wählen Sie Anmerkungen aus, um sie auszuschneiden</translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation>Mausrad</translation>
    </message>
    <message>
        <source>Size of the tool</source>
        <translation>Größe des Werkzeugs</translation>
    </message>
    <message>
        <source>Space+Drag</source>
        <translation>Leertaste+Ziehen</translation>
    </message>
    <message>
        <source>Move around the shot</source>
        <translation>In der Aufnahme bewegen</translation>
    </message>
    <message>
        <source>Arrows</source>
        <translation>Pfeiltasten</translation>
    </message>
    <message>
        <source>Move the selection</source>
        <translation>Auswahl verschieben</translation>
    </message>
    <message>
        <source>Ctrl+Z, Ctrl+Shift+Z</source>
        <translation>Strg+Z, Strg+Umschalt+Z</translation>
    </message>
    <message>
        <source>Undo, Redo</source>
        <translation>Rückgängig, Wiederholen</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Strg+C</translation>
    </message>
    <message>
        <source>Copy the shot</source>
        <translation>Aufnahme kopieren</translation>
    </message>
    <message>
        <source>Ctrl+S</source>
        <translation>Strg+S</translation>
    </message>
    <message>
        <source>Save the shot</source>
        <translation>Aufnahme speichern</translation>
    </message>
    <message>
        <source>Ctrl+Shift+S</source>
        <translation>Strg+Umschalt+S</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Ctrl+1, Ctrl+9</source>
        <translation>Strg+1, Strg+9</translation>
    </message>
    <message>
        <source>Actual size, Fit</source>
        <translation>Originalgröße, Einpassen</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Deselect, then close</source>
        <translation>Auswahl aufheben, dann schließen</translation>
    </message>
    <message>
        <source>Discard this screenshot?</source>
        <translation>Diese Bildschirmaufnahme verwerfen?</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Click here to hide this for good</source>
        <translation>Hier klicken, um dies dauerhaft auszublenden</translation>
    </message>
    <message>
        <source>Your changes to this screenshot have not been copied or saved.</source>
        <translation>Ihre Änderungen an dieser Bildschirmaufnahme wurden weder kopiert noch gespeichert.</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Copy and Keep Open</source>
        <translation>Kopieren und offen lassen</translation>
    </message>
    <message>
        <source>Save and Keep Open</source>
        <translation>Speichern und offen lassen</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Bring Forward</source>
        <translation>Nach vorne</translation>
    </message>
    <message>
        <source>Send Backward</source>
        <translation>Nach hinten</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Actual Size</source>
        <translation>Originalgröße</translation>
    </message>
    <message>
        <source>Fit in Window</source>
        <translation>In Fenster einpassen</translation>
    </message>
    <message>
        <source>%1 copied</source>
        <translation>%1 kopiert</translation>
    </message>
    <message>
        <source>Copy Text</source>
        <translation>Text kopieren</translation>
    </message>
    <message>
        <source>Copy the shot&apos;s text, or the selected words (Ctrl+Shift+C)</source>
        <translation>Den Text der Aufnahme oder die gewählten Wörter kopieren (Strg+Umschalt+C)</translation>
    </message>
    <message>
        <source>Hide Sensitive Text…</source>
        <translation>Vertrauliches verbergen…</translation>
    </message>
    <message>
        <source>Pixelate e-mail addresses, phone numbers, keys and the like (Ctrl+Shift+H)</source>
        <translation>E-Mail-Adressen, Telefonnummern, Schlüssel und Ähnliches verpixeln (Strg+Umschalt+H)</translation>
    </message>
    <message>
        <source>Reading the text…</source>
        <translation>Text wird gelesen…</translation>
    </message>
    <message>
        <source>No text found in this shot</source>
        <translation>Kein Text in dieser Aufnahme gefunden</translation>
    </message>
    <message numerus="yes">
        <source>Copied %n word(s)</source>
        <translation>
            <numerusform>%n Wort kopiert</numerusform>
            <numerusform>%n Wörter kopiert</numerusform>
        </translation>
    </message>
    <message>
        <source>No sensitive text found</source>
        <translation>Nichts Vertrauliches gefunden</translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) hidden</source>
        <translation>
            <numerusform>%n Eintrag verborgen</numerusform>
            <numerusform>%n Einträge verborgen</numerusform>
        </translation>
    </message>
    <message>
        <source>Ctrl+Shift+C</source>
        <translation>Strg+Umschalt+C</translation>
    </message>
    <message>
        <source>Copy the text</source>
        <translation>Den Text kopieren</translation>
    </message>
    <message>
        <source>Pin to Screen</source>
        <translation>An Bildschirm heften</translation>
    </message>
</context>
<context>
    <name>nubo::ShotEmojiPicker</name>
    <message>
        <source>Search emoji</source>
        <translation>Emoji suchen</translation>
    </message>
    <message>
        <source>Recently Used</source>
        <translation>Zuletzt verwendet</translation>
    </message>
    <message>
        <source>No emoji is called “%1”.</source>
        <translation>Kein Emoji heißt „%1“.</translation>
    </message>
    <message>
        <source>Emoji you place show here.</source>
        <translation>Platzierte Emoji erscheinen hier.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotFeature</name>
    <message>
        <source>Could Not Copy Screenshot</source>
        <translation>Bildschirmaufnahme konnte nicht kopiert werden</translation>
    </message>
    <message>
        <source>%1 is not available yet.</source>
        <translation>%1 ist noch nicht verfügbar.</translation>
    </message>
    <message>
        <source>Could Not Capture Screen</source>
        <translation>Bildschirm konnte nicht aufgenommen werden</translation>
    </message>
    <message>
        <source>Could Not Open Recent Image</source>
        <translation>Zuletzt verwendetes Bild konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Could Not Open Screenshot</source>
        <translation>Bildschirmaufnahme konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Could Not Read Text</source>
        <translation>Text konnte nicht gelesen werden</translation>
    </message>
    <message>
        <source>No Text Found</source>
        <translation>Kein Text gefunden</translation>
    </message>
    <message>
        <source>No text could be read in the framed area.</source>
        <translation>Im gewählten Bereich konnte kein Text gelesen werden.</translation>
    </message>
    <message>
        <source>Open in Editor</source>
        <translation>Im Editor öffnen</translation>
    </message>
    <message numerus="yes">
        <source>Copied %n word(s)</source>
        <translation>
            <numerusform>%n Wort kopiert</numerusform>
            <numerusform>%n Wörter kopiert</numerusform>
        </translation>
    </message>
    <message>
        <source>No area has been captured yet. Frame one with Capture Area first.</source>
        <translation>Es wurde noch kein Bereich aufgenommen. Wählen Sie zuerst einen mit „Bereich aufnehmen“.</translation>
    </message>
    <message>
        <source>The display of the previous area is no longer connected.</source>
        <translation>Der Bildschirm des vorherigen Bereichs ist nicht mehr angeschlossen.</translation>
    </message>
    <message>
        <source>The display of the previous area changed its size (%1 × %2 pixels, now %3 × %4). Frame the area again.</source>
        <translation>Der Bildschirm des vorherigen Bereichs hat seine Größe geändert (%1 × %2 Pixel, jetzt %3 × %4). Wählen Sie den Bereich erneut.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotGlobalShortcuts</name>
    <message>
        <source>Record Screen</source>
        <translation>Bildschirm aufzeichnen</translation>
    </message>
    <message>
        <source>Capture Area</source>
        <translation>Bereich aufnehmen</translation>
    </message>
    <message>
        <source>Capture Window</source>
        <translation>Fenster aufnehmen</translation>
    </message>
    <message>
        <source>Capture Fullscreen</source>
        <translation>Ganzen Bildschirm aufnehmen</translation>
    </message>
    <message>
        <source>Capture Scrolling</source>
        <translation>Scrollend aufnehmen</translation>
    </message>
    <message>
        <source>Global shortcuts are not available on this desktop.</source>
        <translation>Globale Tastenkürzel sind in dieser Arbeitsumgebung nicht verfügbar.</translation>
    </message>
    <message>
        <source>Capture Text</source>
        <translation>Text aufnehmen</translation>
    </message>
    <message>
        <source>Capture Previous Area</source>
        <translation>Vorherigen Bereich aufnehmen</translation>
    </message>
</context>
<context>
    <name>nubo::ShotImageFile</name>
    <message>
        <source>Could not read “%1”: %2.</source>
        <translation>„%1“ konnte nicht gelesen werden: %2.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotNotifications</name>
    <message>
        <source>Saved to %1</source>
        <translation>Gespeichert unter %1</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Im Ordner zeigen</translation>
    </message>
</context>
<context>
    <name>nubo::ShotOutputActions</name>
    <message>
        <source>Upload</source>
        <translation>Hochladen</translation>
    </message>
    <message>
        <source>Upload outcome unknown. Retry may create a duplicate upload.</source>
        <translation>Ergebnis des Hochladens unbekannt. Ein neuer Versuch kann eine doppelte Datei erzeugen.</translation>
    </message>
    <message>
        <source>Retry upload</source>
        <translation>Erneut hochladen</translation>
    </message>
    <message>
        <source>Could Not Copy Screenshot</source>
        <translation>Bildschirmaufnahme konnte nicht kopiert werden</translation>
    </message>
    <message>
        <source>Could Not Save Screenshot</source>
        <translation>Bildschirmaufnahme konnte nicht gespeichert werden</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Could Not Drag Screenshot</source>
        <translation>Bildschirmaufnahme konnte nicht gezogen werden</translation>
    </message>
    <message>
        <source>Could Not Open Screenshot</source>
        <translation>Bildschirmaufnahme konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Could Not Share Screenshot</source>
        <translation>Bildschirmaufnahme konnte nicht geteilt werden</translation>
    </message>
    <message>
        <source>Copied %1</source>
        <translation>%1 kopiert</translation>
    </message>
    <message>
        <source>Filebin is public: anyone with the link can see this shot.</source>
        <translation>Filebin ist öffentlich: Jeder mit dem Link kann diese Aufnahme sehen.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotPinWindow</name>
    <message>
        <source>Pinned Shot</source>
        <translation>Angeheftete Aufnahme</translation>
    </message>
    <message>
        <source>Drag to move · Wheel: Zoom · Ctrl+Wheel: Opacity · Double-Click or Esc: Close</source>
        <translation>Ziehen zum Verschieben · Mausrad: Zoom · Strg+Mausrad: Deckkraft · Doppelklick oder Esc: Schließen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Open in Editor</source>
        <translation>Im Editor öffnen</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Deckkraft</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>nubo::ShotPins</name>
    <message>
        <source>Could Not Save Screenshot</source>
        <translation>Bildschirmfoto konnte nicht gespeichert werden</translation>
    </message>
    <message>
        <source>Pinned as a normal window</source>
        <translation>Als normales Fenster angeheftet</translation>
    </message>
    <message>
        <source>This desktop does not let Nubo Shot keep a pinned shot above other windows; it stays where the desktop puts it.</source>
        <translation>Diese Arbeitsumgebung lässt Nubo Shot eine angeheftete Aufnahme nicht über anderen Fenstern halten; sie bleibt, wo die Arbeitsumgebung sie hinstellt.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingControlBar</name>
    <message>
        <source>Pause Recording</source>
        <translation>Aufzeichnung anhalten</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>Aufzeichnung beenden</translation>
    </message>
    <message>
        <source>Cancel Recording</source>
        <translation>Aufzeichnung abbrechen</translation>
    </message>
    <message>
        <source>Resume Recording</source>
        <translation>Aufzeichnung fortsetzen</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingControls</name>
    <message>
        <source>No camera is available.</source>
        <translation>Keine Kamera verfügbar.</translation>
    </message>
    <message>
        <source>System Audio</source>
        <translation>Systemton</translation>
    </message>
    <message>
        <source>Record what the computer plays</source>
        <translation>Aufzeichnen, was der Computer abspielt</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>Mikrofon</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Show your camera as a round bubble in the recording</source>
        <translation>Ihre Kamera als runde Blase in der Aufzeichnung zeigen</translation>
    </message>
    <message>
        <source>Cursor</source>
        <translation>Zeiger</translation>
    </message>
    <message>
        <source>Show the pointer in the recording</source>
        <translation>Mauszeiger in der Aufzeichnung zeigen</translation>
    </message>
    <message>
        <source>Clicks</source>
        <translation>Klicks</translation>
    </message>
    <message>
        <source>Ring every click in the recording</source>
        <translation>Jeden Klick in der Aufzeichnung mit einem Ring markieren</translation>
    </message>
    <message>
        <source>30 fps</source>
        <translation>30 B/s</translation>
    </message>
    <message>
        <source>60 fps</source>
        <translation>60 B/s</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Native</source>
        <translation>Nativ</translation>
    </message>
    <message>
        <source>One pixel a point: smaller files on HiDPI screens</source>
        <translation>Ein Pixel pro Punkt: kleinere Dateien auf HiDPI-Bildschirmen</translation>
    </message>
    <message>
        <source>Every pixel of the screen</source>
        <translation>Jedes Pixel des Bildschirms</translation>
    </message>
    <message>
        <source>Default microphone</source>
        <translation>Standardmikrofon</translation>
    </message>
    <message>
        <source>%1 (not connected)</source>
        <translation>%1 (nicht verbunden)</translation>
    </message>
    <message>
        <source>HEVC needs a hardware video encoder (VAAPI or NVENC), and this computer has none.</source>
        <translation>HEVC braucht einen Hardware-Videoencoder (VAAPI oder NVENC), und dieser Computer hat keinen.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingCountdown</name>
    <message>
        <source>Esc: Cancel</source>
        <translation>Esc: Abbrechen</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingFlow</name>
    <message>
        <source>This desktop cannot be recorded by Nubo Shot yet.</source>
        <translation>Diese Arbeitsumgebung kann Nubo Shot noch nicht aufzeichnen.</translation>
    </message>
    <message>
        <source>Could Not Record Screen</source>
        <translation>Bildschirm konnte nicht aufgezeichnet werden</translation>
    </message>
    <message>
        <source>window picked at the start</source>
        <translation>beim Start gewähltes Fenster</translation>
    </message>
    <message>
        <source>Recording the screen</source>
        <translation>Bildschirm wird aufgezeichnet</translation>
    </message>
    <message>
        <source>Recording saved</source>
        <translation>Aufzeichnung gespeichert</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingOptionsBar</name>
    <message>
        <source>Cancel (Esc)</source>
        <translation>Abbrechen (Esc)</translation>
    </message>
    <message>
        <source>Stop from the menu</source>
        <translation>Über das Menü beenden</translation>
    </message>
    <message>
        <source>Start Recording</source>
        <translation>Aufzeichnung starten</translation>
    </message>
    <message>
        <source>Start (Return)</source>
        <translation>Starten (Eingabetaste)</translation>
    </message>
    <message>
        <source>Or by the shortcut, or with “nuboshot capture recording”</source>
        <translation>Oder mit dem Tastenkürzel oder mit „nuboshot capture recording“</translation>
    </message>
</context>
<context>
    <name>nubo::ShotReviewTimeline</name>
    <message>
        <source>Blur %1</source>
        <translation>Unschärfe %1</translation>
    </message>
</context>
<context>
    <name>nubo::ShotReviewWindow</name>
    <message>
        <source>%1 — Review</source>
        <translation>%1 — Durchsicht</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Play or pause (Space)</source>
        <translation>Abspielen oder anhalten (Leertaste)</translation>
    </message>
    <message>
        <source>Split</source>
        <translation>Teilen</translation>
    </message>
    <message>
        <source>Split at the playhead (S)</source>
        <translation>Am Abspielkopf teilen (S)</translation>
    </message>
    <message>
        <source>Remove Segment</source>
        <translation>Abschnitt entfernen</translation>
    </message>
    <message>
        <source>Cut out the segment under the playhead (Delete)</source>
        <translation>Abschnitt unter dem Abspielkopf herausschneiden (Entf)</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>Verwischen</translation>
    </message>
    <message>
        <source>Drag over the picture to blur a region (B)</source>
        <translation>Über das Bild ziehen, um einen Bereich zu verwischen (B)</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Zuschneiden</translation>
    </message>
    <message>
        <source>Crop the picture (C)</source>
        <translation>Bild zuschneiden (C)</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Stumm</translation>
    </message>
    <message>
        <source>Export without sound (M)</source>
        <translation>Ohne Ton exportieren (M)</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Undo (Ctrl+Z)</source>
        <translation>Rückgängig (Strg+Z)</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Redo (Ctrl+Shift+Z)</source>
        <translation>Wiederholen (Strg+Umschalt+Z)</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Im Ordner zeigen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>Speichern unter…</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>%1 × %2 · about %3</source>
        <translation>%1 × %2 · etwa %3</translation>
    </message>
    <message>
        <source>Save Edited Recording</source>
        <translation>Bearbeitete Aufzeichnung speichern</translation>
    </message>
    <message>
        <source>MPEG-4 movie (*.mp4)</source>
        <translation>MPEG-4-Video (*.mp4)</translation>
    </message>
    <message>
        <source>Export cancelled</source>
        <translation>Export abgebrochen</translation>
    </message>
    <message>
        <source>Export failed</source>
        <translation>Export fehlgeschlagen</translation>
    </message>
    <message>
        <source>Export Failed</source>
        <translation>Export fehlgeschlagen</translation>
    </message>
    <message>
        <source>Discard Edits?</source>
        <translation>Bearbeitungen verwerfen?</translation>
    </message>
    <message>
        <source>Your edits to “%1” have not been exported.</source>
        <translation>Ihre Bearbeitungen an „%1“ wurden nicht exportiert.</translation>
    </message>
    <message>
        <source>The recording itself stays as it is.</source>
        <translation>Die Aufzeichnung selbst bleibt unverändert.</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Copied “%1”</source>
        <translation>„%1“ kopiert</translation>
    </message>
    <message>
        <source>Exporting “%1”…</source>
        <translation>„%1“ wird exportiert…</translation>
    </message>
    <message>
        <source>Exported “%1”</source>
        <translation>„%1“ exportiert</translation>
    </message>
    <message>
        <source>Export format and size</source>
        <translation>Exportformat und -größe</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>MP4 Movie</source>
        <translation>MP4-Film</translation>
    </message>
    <message>
        <source>GIF</source>
        <translation>GIF</translation>
    </message>
    <message>
        <source>Animated WebP</source>
        <translation>Animiertes WebP</translation>
    </message>
    <message>
        <source>Frame Rate</source>
        <translation>Bildrate</translation>
    </message>
    <message>
        <source>%1 fps</source>
        <translation>%1 fps</translation>
    </message>
    <message>
        <source>Width · Never upscaled</source>
        <translation>Breite · Nie vergrößert</translation>
    </message>
    <message>
        <source>Original (%1 px)</source>
        <translation>Original (%1 px)</translation>
    </message>
    <message>
        <source>%1 px</source>
        <translation>%1 px</translation>
    </message>
    <message>
        <source>MP4 · %1</source>
        <translation>MP4 · %1</translation>
    </message>
    <message>
        <source>%1 · %2 fps · %3 px</source>
        <translation>%1 · %2 fps · %3 px</translation>
    </message>
    <message>
        <source>WebP</source>
        <translation>WebP</translation>
    </message>
    <message>
        <source>GIF animation (*.gif)</source>
        <translation>GIF-Animation (*.gif)</translation>
    </message>
    <message>
        <source>Animated WebP (*.webp)</source>
        <translation>Animiertes WebP (*.webp)</translation>
    </message>
</context>
<context>
    <name>nubo::ShotSaveOptions</name>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>&amp;Quality:</source>
        <translation>&amp;Qualität:</translation>
    </message>
    <message>
        <source>S&amp;cale:</source>
        <translation>&amp;Maßstab:</translation>
    </message>
</context>
<context>
    <name>nubo::ShotScrollingPanel</name>
    <message>
        <source>Scrolling Capture</source>
        <translation>Scrollende Aufnahme</translation>
    </message>
    <message>
        <source>Return: Done · Esc: Cancel</source>
        <translation>Eingabetaste: Fertig · Esc: Abbrechen</translation>
    </message>
    <message>
        <source>Auto-scroll</source>
        <translation>Automatisch scrollen</translation>
    </message>
    <message>
        <source>Scroll to the end by itself; any key or click stops</source>
        <translation>Selbst bis zum Ende scrollen; jede Taste oder jeder Klick hält an</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Scroll down to the end, or use Auto-scroll.</source>
        <translation>Scrollen Sie bis zum Ende oder verwenden Sie „Automatisch scrollen“.</translation>
    </message>
    <message>
        <source>%1 px tall</source>
        <translation>%1 px hoch</translation>
    </message>
    <message>
        <source>Stop Auto-scroll</source>
        <translation>Automatisches Scrollen beenden</translation>
    </message>
</context>
<context>
    <name>nubo::ShotScrollingSession</name>
    <message>
        <source>this desktop offers no region streams</source>
        <translation>diese Arbeitsumgebung bietet keine Bereichsstreams</translation>
    </message>
    <message>
        <source>Auto-scroll is not available on this desktop: scroll by hand.</source>
        <translation>Automatisches Scrollen ist in dieser Arbeitsumgebung nicht verfügbar: Scrollen Sie von Hand.</translation>
    </message>
    <message>
        <source>Scroll back up a little</source>
        <translation>Ein wenig zurück nach oben scrollen</translation>
    </message>
    <message>
        <source>Auto-scrolling… Any key or click stops it.</source>
        <translation>Scrollt automatisch… Jede Taste oder jeder Klick hält an.</translation>
    </message>
    <message>
        <source>Keep scrolling down; Done when you reach the end.</source>
        <translation>Weiter nach unten scrollen; „Fertig“, wenn Sie das Ende erreichen.</translation>
    </message>
    <message>
        <source>Reached the size limit.</source>
        <translation>Größengrenze erreicht.</translation>
    </message>
    <message>
        <source>The scrolling capture reached its size limit and stopped at %1 pixels.</source>
        <translation>Die scrollende Aufnahme hat ihre Größengrenze erreicht und bei %1 Pixeln angehalten.</translation>
    </message>
    <message>
        <source>Auto-scroll stopped.</source>
        <translation>Automatisches Scrollen angehalten.</translation>
    </message>
    <message>
        <source>Auto-scroll reached the end: press Done.</source>
        <translation>Automatisches Scrollen hat das Ende erreicht: Drücken Sie „Fertig“.</translation>
    </message>
    <message>
        <source>this desktop cannot scroll for us</source>
        <translation>diese Arbeitsumgebung kann nicht für uns scrollen</translation>
    </message>
    <message>
        <source>Auto-scroll could not start: %1.</source>
        <translation>Automatisches Scrollen konnte nicht starten: %1.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotSensitiveTextDialog</name>
    <message>
        <source>E-mail address</source>
        <translation>E-Mail-Adresse</translation>
    </message>
    <message>
        <source>Phone number</source>
        <translation>Telefonnummer</translation>
    </message>
    <message>
        <source>IP address</source>
        <translation>IP-Adresse</translation>
    </message>
    <message>
        <source>Card number</source>
        <translation>Kartennummer</translation>
    </message>
    <message>
        <source>Key or token</source>
        <translation>Schlüssel oder Token</translation>
    </message>
    <message>
        <source>Private key</source>
        <translation>Privater Schlüssel</translation>
    </message>
    <message>
        <source>Hide Sensitive Text</source>
        <translation>Vertrauliches verbergen</translation>
    </message>
    <message>
        <source>The ticked text is pixelated. Untick what may stay readable.</source>
        <translation>Der angehakte Text wird verpixelt. Entfernen Sie den Haken bei allem, was lesbar bleiben darf.</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>Verbergen</translation>
    </message>
</context>
<context>
    <name>nubo::ShotSettingsBackup</name>
    <message>
        <source>not a setting of this version</source>
        <translation>keine Einstellung dieser Version</translation>
    </message>
    <message>
        <source>not true or false</source>
        <translation>weder true noch false</translation>
    </message>
    <message>
        <source>not a text</source>
        <translation>kein Text</translation>
    </message>
    <message>
        <source>not png, jpeg, heic or webp</source>
        <translation>nicht png, jpeg, heic oder webp</translation>
    </message>
    <message>
        <source>not auto, r2 or filebin</source>
        <translation>nicht auto, r2 oder filebin</translation>
    </message>
    <message>
        <source>not a capture of this version</source>
        <translation>keine Aufnahmeart dieser Version</translation>
    </message>
    <message>
        <source>not a key</source>
        <translation>keine Tastenkombination</translation>
    </message>
    <message>
        <source>not a tool of this version</source>
        <translation>kein Werkzeug dieser Version</translation>
    </message>
    <message>
        <source>not a style</source>
        <translation>kein Stil</translation>
    </message>
    <message>
        <source>not a plain value</source>
        <translation>kein einfacher Wert</translation>
    </message>
    <message>
        <source>no settings in it</source>
        <translation>keine Einstellungen darin</translation>
    </message>
    <message>
        <source>The file is not a Nubo Shot settings backup: nothing was restored.</source>
        <translation>Die Datei ist keine Einstellungssicherung von Nubo Shot: Nichts wurde wiederhergestellt.</translation>
    </message>
    <message>
        <source>secrets are never restored from a file</source>
        <translation>Geheimnisse werden nie aus einer Datei wiederhergestellt</translation>
    </message>
    <message>
        <source>“%1” is not a file.</source>
        <translation>„%1“ ist keine Datei.</translation>
    </message>
    <message>
        <source>“%1” cannot be read: %2.</source>
        <translation>„%1“ kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source> The backup comes from a newer Nubo Shot.</source>
        <translation> Die Sicherung stammt von einer neueren Version von Nubo Shot.</translation>
    </message>
    <message>
        <source> Skipped: </source>
        <translation> Übersprungen: </translation>
    </message>
    <message>
        <source>The file is not a settings backup, or it is damaged (%1): nothing was restored.</source>
        <translation>Die Datei ist keine Einstellungssicherung oder beschädigt (%1): Nichts wurde wiederhergestellt.</translation>
    </message>
    <message>
        <source>“%1” is larger than any settings backup (over 1 MiB): nothing was restored.</source>
        <translation>„%1“ ist größer als jede Einstellungssicherung (über 1 MiB): Nichts wurde wiederhergestellt.</translation>
    </message>
    <message numerus="yes">
        <source>%n setting(s) restored.</source>
        <translation>
            <numerusform>%n Einstellung wiederhergestellt.</numerusform>
            <numerusform>%n Einstellungen wiederhergestellt.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nubo::ShotSettingsPage</name>
    <message>
        <source>Backup</source>
        <translation>Sicherung</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>Editor</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Ausgabe</translation>
    </message>
    <message>
        <source>Permissions</source>
        <translation>Berechtigungen</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufzeichnung</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Uploads</source>
        <translation>Uploads</translation>
    </message>
</context>
<context>
    <name>nubo::ShotSettingsWindow</name>
    <message>
        <source>Nubo Shot Settings</source>
        <translation>Nubo Shot – Einstellungen</translation>
    </message>
</context>
<context>
    <name>nubo::ShotShare</name>
    <message>
        <source>The shot could not be prepared for sharing.</source>
        <translation>Die Aufnahme konnte nicht zum Teilen vorbereitet werden.</translation>
    </message>
    <message>
        <source>No application could be offered to open the shot.</source>
        <translation>Es konnte keine Anwendung zum Öffnen der Aufnahme angeboten werden.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotShortcutField</name>
    <message>
        <source>Click, then press the keys</source>
        <translation>Klicken, dann die Tasten drücken</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>No shortcut for this</source>
        <translation>Kein Tastenkürzel dafür</translation>
    </message>
    <message>
        <source>%1 already does %2.</source>
        <translation>%1 führt bereits „%2“ aus.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotStatusMenu</name>
    <message>
        <source>Record Screen</source>
        <translation>Bildschirm aufzeichnen</translation>
    </message>
    <message>
        <source>Record Window</source>
        <translation>Fenster aufzeichnen</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>Aufzeichnung beenden</translation>
    </message>
    <message>
        <source>Cancel Recording</source>
        <translation>Aufzeichnung abbrechen</translation>
    </message>
    <message>
        <source>Open Image in Nubo Shot…</source>
        <translation>Bild in Nubo Shot öffnen…</translation>
    </message>
    <message>
        <source>Recent</source>
        <translation>Zuletzt verwendet</translation>
    </message>
    <message>
        <source>Recent Uploads…</source>
        <translation>Letzte Uploads…</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Einstellungen…</translation>
    </message>
    <message>
        <source>Quit Nubo Shot</source>
        <translation>Nubo Shot beenden</translation>
    </message>
    <message>
        <source>Copied image</source>
        <translation>Kopiertes Bild</translation>
    </message>
    <message>
        <source>No recent images</source>
        <translation>Keine zuletzt verwendeten Bilder</translation>
    </message>
    <message>
        <source>Clear Recent</source>
        <translation>Liste leeren</translation>
    </message>
    <message>
        <source>No windows to record</source>
        <translation>Keine Fenster zum Aufzeichnen</translation>
    </message>
    <message>
        <source>Saving the recording…</source>
        <translation>Aufzeichnung wird gespeichert…</translation>
    </message>
    <message>
        <source>Resume Recording</source>
        <translation>Aufzeichnung fortsetzen</translation>
    </message>
    <message>
        <source>Pause Recording</source>
        <translation>Aufzeichnung anhalten</translation>
    </message>
    <message>
        <source>d MMM, HH:mm</source>
        <translation>d. MMM, HH:mm</translation>
    </message>
    <message>
        <source>Delay</source>
        <translation>Verzögerung</translation>
    </message>
    <message>
        <source>No Delay</source>
        <translation>Ohne Verzögerung</translation>
    </message>
    <message numerus="yes">
        <source>%n second(s)</source>
        <translation>
            <numerusform>%n Sekunde</numerusform>
            <numerusform>%n Sekunden</numerusform>
        </translation>
    </message>
    <message>
        <source>Pinned</source>
        <translation>Angeheftet</translation>
    </message>
    <message>
        <source>Close All Pins</source>
        <translation>Alle angehefteten schließen</translation>
    </message>
    <message>
        <source>Cancel Delayed Capture (%1 s)</source>
        <translation>Verzögerte Aufnahme abbrechen (%1 s)</translation>
    </message>
</context>
<context>
    <name>nubo::ShotStyleBar</name>
    <message>
        <source>Style</source>
        <translation>Stil</translation>
    </message>
    <message>
        <source>Other Colour…</source>
        <translation>Andere Farbe…</translation>
    </message>
    <message>
        <source>Other Colour</source>
        <translation>Andere Farbe</translation>
    </message>
    <message>
        <source> pt</source>
        <translation> pt</translation>
    </message>
    <message>
        <source>%1 pt</source>
        <translation>%1 pt</translation>
    </message>
    <message>
        <source>Choose the emoji</source>
        <translation>Emoji wählen</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Drag the frame or its handles; Return crops</source>
        <translation>Rahmen oder Griffe ziehen; Eingabetaste schneidet zu</translation>
    </message>
    <message>
        <source>Click to copy a colour and use it for drawing</source>
        <translation>Klicken, um eine Farbe aufzunehmen und damit zu zeichnen</translation>
    </message>
    <message>
        <source>Click to select, drag to move; Shift adds to the selection</source>
        <translation>Klicken zum Auswählen, Ziehen zum Verschieben; Umschalt erweitert die Auswahl</translation>
    </message>
    <message>
        <source>&amp;Width</source>
        <translation>&amp;Breite</translation>
    </message>
    <message>
        <source>&amp;Size</source>
        <translation>&amp;Größe</translation>
    </message>
    <message>
        <source>&amp;Outline</source>
        <translation>&amp;Kontur</translation>
    </message>
    <message>
        <source>&amp;Emoji</source>
        <translation>&amp;Emoji</translation>
    </message>
    <message>
        <source>Drag over the words to select them; Ctrl+C copies them</source>
        <translation>Über die Wörter ziehen, um sie zu wählen; Strg+C kopiert sie</translation>
    </message>
</context>
<context>
    <name>nubo::ShotTextLayer</name>
    <message>
        <source>No text found in this shot</source>
        <translation>Kein Text in dieser Aufnahme gefunden</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Code copied</source>
        <translation>Code kopiert</translation>
    </message>
    <message>
        <source>Open Link</source>
        <translation>Link öffnen</translation>
    </message>
    <message>
        <source>No application opens this link</source>
        <translation>Kein Programm öffnet diesen Link</translation>
    </message>
</context>
<context>
    <name>nubo::ShotTools</name>
    <message>
        <source>Crop</source>
        <translation>Zuschneiden</translation>
    </message>
    <message>
        <source>Add image</source>
        <translation>Bild hinzufügen</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Rechteck</translation>
    </message>
    <message>
        <source>Filled rectangle</source>
        <translation>Gefülltes Rechteck</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>Ellipse</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Linie</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>Pfeil</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Blur / Censor</source>
        <translation>Verpixeln / Schwärzen</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Draw</source>
        <translation>Zeichnen</translation>
    </message>
    <message>
        <source>Highlighter</source>
        <translation>Textmarker</translation>
    </message>
    <message>
        <source>Emoji</source>
        <translation>Emoji</translation>
    </message>
    <message>
        <source>Pick color</source>
        <translation>Farbe aufnehmen</translation>
    </message>
    <message>
        <source>Select text</source>
        <translation>Text auswählen</translation>
    </message>
</context>
<context>
    <name>nubo::ShotUpload</name>
    <message>
        <source>Upload to Filebin</source>
        <translation>Zu Filebin hochladen</translation>
    </message>
    <message>
        <source>Uploading… %1%</source>
        <translation>Wird hochgeladen… %1 %</translation>
    </message>
    <message>
        <source>Uploading…</source>
        <translation>Wird hochgeladen…</translation>
    </message>
    <message>
        <source>Upload complete · Link copied</source>
        <translation>Hochgeladen · Link kopiert</translation>
    </message>
    <message>
        <source>Upload complete · Key copied</source>
        <translation>Hochgeladen · Schlüssel kopiert</translation>
    </message>
    <message>
        <source>Upload failed · Retry</source>
        <translation>Hochladen fehlgeschlagen · Erneut versuchen</translation>
    </message>
    <message>
        <source>Upload uncertain · Retry</source>
        <translation>Hochladen ungewiss · Erneut versuchen</translation>
    </message>
    <message>
        <source>Upload to R2</source>
        <translation>Zu R2 hochladen</translation>
    </message>
</context>
<context>
    <name>nubo::ShotUploadHistory</name>
    <message>
        <source>d MMM, HH:mm</source>
        <translation>d. MMM, HH:mm</translation>
    </message>
    <message>
        <source>Recent Uploads</source>
        <translation>Letzte Uploads</translation>
    </message>
    <message>
        <source>Delete from Filebin</source>
        <translation>Aus Filebin löschen</translation>
    </message>
    <message>
        <source>Delete “%1” from Filebin?</source>
        <translation>„%1“ aus Filebin löschen?</translation>
    </message>
    <message>
        <source>Its link stops working for everyone.</source>
        <translation>Sein Link funktioniert danach für niemanden mehr.</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Ziel</translation>
    </message>
    <message>
        <source>Uploaded</source>
        <translation>Hochgeladen</translation>
    </message>
    <message>
        <source>Kept until</source>
        <translation>Aufbewahrt bis</translation>
    </message>
    <message>
        <source>Link or key</source>
        <translation>Link oder Schlüssel</translation>
    </message>
    <message>
        <source>Copy Link</source>
        <translation>Link kopieren</translation>
    </message>
    <message>
        <source>Open Link</source>
        <translation>Link öffnen</translation>
    </message>
    <message>
        <source>Copied %1</source>
        <translation>%1 kopiert</translation>
    </message>
    <message>
        <source>Nothing uploaded yet.</source>
        <translation>Noch nichts hochgeladen.</translation>
    </message>
    <message>
        <source>Deleted</source>
        <translation>Gelöscht</translation>
    </message>
    <message>
        <source>Expired</source>
        <translation>Abgelaufen</translation>
    </message>
    <message>
        <source>Until deleted</source>
        <translation>Bis zur Löschung</translation>
    </message>
    <message>
        <source>Bucket “%1”</source>
        <translation>Bucket „%1“</translation>
    </message>
    <message>
        <source>Filebin</source>
        <translation>Filebin</translation>
    </message>
    <message>
        <source>Objects in a bucket are deleted with the bucket&apos;s own tools</source>
        <translation>Objekte in einem Bucket werden mit dessen eigenen Werkzeugen gelöscht</translation>
    </message>
    <message>
        <source>Deleting %1…</source>
        <translation>%1 wird gelöscht…</translation>
    </message>
    <message>
        <source>Deleted %1 from Filebin.</source>
        <translation>%1 aus Filebin gelöscht.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotUploadStatus</name>
    <message>
        <source>The shot could not be read for the upload: %1.</source>
        <translation>Die Aufnahme konnte für das Hochladen nicht gelesen werden: %1.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotZoomControls</name>
    <message>
        <source>Zoom Out (Ctrl+-)</source>
        <translation>Verkleinern (Strg+-)</translation>
    </message>
    <message>
        <source>Actual Size (Ctrl+0)</source>
        <translation>Originalgröße (Strg+0)</translation>
    </message>
    <message>
        <source>Zoom In (Ctrl++)</source>
        <translation>Vergrößern (Strg++)</translation>
    </message>
    <message>
        <source>Fit in Window (Ctrl+9)</source>
        <translation>In Fenster einpassen (Strg+9)</translation>
    </message>
</context>
<context>
    <name>nubo::TextRecognition</name>
    <message>
        <source>Text in “%1” cannot be recognised: its data is not installed (install the package tesseract-ocr-%2).</source>
        <translation>Text in „%1“ kann nicht erkannt werden: Die Daten dafür sind nicht installiert (installieren Sie das Paket tesseract-ocr-%2).</translation>
    </message>
    <message>
        <source>The text recognition engine could not start with “%1”.</source>
        <translation>Die Texterkennung konnte mit „%1“ nicht starten.</translation>
    </message>
    <message>
        <source>The text could not be recognised.</source>
        <translation>Der Text konnte nicht erkannt werden.</translation>
    </message>
</context>
<context>
    <name>nubo::TrayApplication</name>
    <message>
        <source>Open Image in Nubo Shot</source>
        <translation>Bild in Nubo Shot öffnen</translation>
    </message>
    <message>
        <source>Images (*.png *.jpg *.jpeg *.webp *.bmp *.gif)</source>
        <translation>Bilder (*.png *.jpg *.jpeg *.webp *.bmp *.gif)</translation>
    </message>
    <message>
        <source>Could Not Open Image</source>
        <translation>Bild konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Stop the recording and quit?</source>
        <translation>Aufzeichnung beenden und Programm schließen?</translation>
    </message>
    <message>
        <source>The recording is saved before Nubo Shot quits.</source>
        <translation>Die Aufzeichnung wird gespeichert, bevor Nubo Shot sich beendet.</translation>
    </message>
    <message>
        <source>Stop and Quit</source>
        <translation>Beenden und schließen</translation>
    </message>
    <message>
        <source>Nubo Shot — saving the recording</source>
        <translation>Nubo Shot – Aufzeichnung wird gespeichert</translation>
    </message>
    <message>
        <source>Open Shortcuts Settings</source>
        <translation>Tastenkürzel-Einstellungen öffnen</translation>
    </message>
    <message>
        <source>Recovered an interrupted recording</source>
        <translation>Eine unterbrochene Aufzeichnung wurde gerettet</translation>
    </message>
    <message>
        <source>An interrupted recording could not be kept</source>
        <translation>Eine unterbrochene Aufzeichnung konnte nicht behalten werden</translation>
    </message>
    <message numerus="yes">
        <source>%n shortcut(s) do not work</source>
        <translation>
            <numerusform>Ein Tastenkürzel funktioniert nicht</numerusform>
            <numerusform>%n Tastenkürzel funktionieren nicht</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 stopped before its first picture was saved; nothing of it could be kept.</source>
        <translation>%1 endete, bevor das erste Bild gespeichert war; nichts davon konnte behalten werden.</translation>
    </message>
    <message numerus="yes">
        <source>%n upload(s) were interrupted</source>
        <translation>
            <numerusform>Ein Upload wurde unterbrochen</numerusform>
            <numerusform>%n Uploads wurden unterbrochen</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 may not have arrived. Upload it again from its editor, or see Recent Uploads.</source>
        <translation>%1 ist möglicherweise nicht angekommen. Laden Sie es aus dem Editor erneut hoch oder sehen Sie unter „Letzte Uploads“ nach.</translation>
    </message>
    <message>
        <source>Nubo Shot — paused at %1</source>
        <translation>Nubo Shot – angehalten bei %1</translation>
    </message>
    <message>
        <source>Nubo Shot — recording %1</source>
        <translation>Nubo Shot – Aufzeichnung %1</translation>
    </message>
    <message numerus="yes">
        <source>Nubo Shot — capturing in %n second(s)</source>
        <translation>
            <numerusform>Nubo Shot – Aufnahme in %n Sekunde</numerusform>
            <numerusform>Nubo Shot – Aufnahme in %n Sekunden</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nubo::Uploader</name>
    <message>
        <source>The S3 destination is not set up: give its endpoint, region, bucket and access key id in the Uploads settings.</source>
        <translation>Das S3-Ziel ist nicht eingerichtet: Geben Sie Endpunkt, Region, Bucket und Zugriffsschlüssel-ID in den Upload-Einstellungen an.</translation>
    </message>
    <message>
        <source>The keyring holds no S3 secret for the access key id “%1”: enter it in the Uploads settings.</source>
        <translation>Der Schlüsselbund enthält kein S3-Geheimnis für die Zugriffsschlüssel-ID „%1“: Geben Sie es in den Upload-Einstellungen ein.</translation>
    </message>
    <message>
        <source>The Filebin server “%1” is not an http or https address.</source>
        <translation>Der Filebin-Server „%1“ ist keine http- oder https-Adresse.</translation>
    </message>
    <message>
        <source>The upload was cancelled.</source>
        <translation>Das Hochladen wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The upload to %1 failed: %2.</source>
        <translation>Das Hochladen zu %1 ist fehlgeschlagen: %2.</translation>
    </message>
    <message>
        <source>Only Filebin uploads can be deleted from here.</source>
        <translation>Nur Filebin-Uploads können hier gelöscht werden.</translation>
    </message>
    <message>
        <source>Filebin could not be reached: %1.</source>
        <translation>Filebin ist nicht erreichbar: %1.</translation>
    </message>
</context>
<context>
    <name>nubo::UploadsSettingsPage</name>
    <message>
        <source>Destination</source>
        <translation>Ziel</translation>
    </message>
    <message>
        <source>Automatic: the bucket when it is set up, else Filebin</source>
        <translation>Automatisch: der Bucket, wenn eingerichtet, sonst Filebin</translation>
    </message>
    <message>
        <source>S3-compatible bucket (R2)</source>
        <translation>S3-kompatibler Bucket (R2)</translation>
    </message>
    <message>
        <source>Filebin</source>
        <translation>Filebin</translation>
    </message>
    <message>
        <source>Upload to:</source>
        <translation>Hochladen nach:</translation>
    </message>
    <message>
        <source>A new bin for every upload</source>
        <translation>Ein neuer Bin für jeden Upload</translation>
    </message>
    <message>
        <source>S3-compatible bucket</source>
        <translation>S3-kompatibler Bucket</translation>
    </message>
    <message>
        <source>Key prefix:</source>
        <translation>Schlüsselpräfix:</translation>
    </message>
    <message>
        <source>Optional, such as screenshots/</source>
        <translation>Optional, etwa screenshots/</translation>
    </message>
    <message>
        <source>Public URL:</source>
        <translation>Öffentliche URL:</translation>
    </message>
    <message>
        <source>Optional, such as https://shots.example.com</source>
        <translation>Optional, etwa https://shots.example.com</translation>
    </message>
    <message>
        <source>Bucket in the host name (virtual-hosted style)</source>
        <translation>Bucket im Hostnamen (virtual-hosted style)</translation>
    </message>
    <message>
        <source>Access key ID:</source>
        <translation>Zugriffsschlüssel-ID:</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>Vergessen</translation>
    </message>
    <message>
        <source>Secret access key:</source>
        <translation>Geheimer Zugriffsschlüssel:</translation>
    </message>
    <message>
        <source>Try it</source>
        <translation>Ausprobieren</translation>
    </message>
    <message>
        <source>Test Upload</source>
        <translation>Test-Upload</translation>
    </message>
    <message>
        <source>Uploads a small picture to the destination above</source>
        <translation>Lädt ein kleines Bild zum obigen Ziel hoch</translation>
    </message>
    <message>
        <source>The settings could not be kept: %1</source>
        <translation>Die Einstellungen konnten nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>Enter the access key ID first.</source>
        <translation>Geben Sie zuerst die Zugriffsschlüssel-ID ein.</translation>
    </message>
    <message>
        <source>Asking the keyring…</source>
        <translation>Schlüsselbund wird gefragt…</translation>
    </message>
    <message>
        <source>Set · type to replace</source>
        <translation>Gesetzt · zum Ersetzen tippen</translation>
    </message>
    <message>
        <source>Kept in the desktop&apos;s keyring.</source>
        <translation>Im Schlüsselbund der Arbeitsumgebung gespeichert.</translation>
    </message>
    <message>
        <source>Not set</source>
        <translation>Nicht gesetzt</translation>
    </message>
    <message>
        <source>Not set: uploads to the bucket need it.</source>
        <translation>Nicht gesetzt: Uploads in den Bucket brauchen ihn.</translation>
    </message>
    <message>
        <source>Not available</source>
        <translation>Nicht verfügbar</translation>
    </message>
    <message>
        <source>Storing in the keyring…</source>
        <translation>Wird im Schlüsselbund gespeichert…</translation>
    </message>
    <message>
        <source>Uploading to the bucket…</source>
        <translation>Wird in den Bucket hochgeladen…</translation>
    </message>
    <message>
        <source>Uploading to Filebin…</source>
        <translation>Wird zu Filebin hochgeladen…</translation>
    </message>
    <message>
        <source>Uploaded: %1</source>
        <translation>Hochgeladen: %1</translation>
    </message>
    <message>
        <source>Links are copied after upload. Without a public URL, object keys are copied.</source>
        <translation>Nach dem Hochladen werden Links kopiert. Ohne öffentliche URL werden Objektschlüssel kopiert.</translation>
    </message>
    <message>
        <source>Filebin keeps files for about a week; anyone with the link can see them.</source>
        <translation>Filebin bewahrt Dateien etwa eine Woche auf; jeder mit dem Link kann sie sehen.</translation>
    </message>
    <message>
        <source>Uploaded as %1 (no public URL, so this is the object key).</source>
        <translation>Als %1 hochgeladen (keine öffentliche URL, daher ist dies der Objektschlüssel).</translation>
    </message>
    <message>
        <source>Server:</source>
        <translation>Server:</translation>
    </message>
    <message>
        <source>Bin:</source>
        <translation>Bin:</translation>
    </message>
    <message>
        <source>Endpoint:</source>
        <translation>Endpunkt:</translation>
    </message>
    <message>
        <source>Region:</source>
        <translation>Region:</translation>
    </message>
    <message>
        <source>Bucket:</source>
        <translation>Bucket:</translation>
    </message>
    <message>
        <source>Failed.</source>
        <translation>Fehlgeschlagen.</translation>
    </message>
</context>
<context>
    <name>nubo::XcbConnection</name>
    <message>
        <source>The X display stores pixels at a depth of %1 bits (%2 bits a pixel), which Nubo Shot cannot read; it reads depths 15, 16, 24, 30 and 32.</source>
        <translation>Die X-Anzeige speichert Pixel mit einer Tiefe von %1 Bit (%2 Bit pro Pixel), die Nubo Shot nicht lesen kann; es liest die Tiefen 15, 16, 24, 30 und 32.</translation>
    </message>
    <message>
        <source>There is not enough memory to read the screen.</source>
        <translation>Es ist nicht genug Speicher frei, um den Bildschirm zu lesen.</translation>
    </message>
    <message>
        <source>The X server sent %1 bytes of pixels where %2 were asked for.</source>
        <translation>Der X-Server hat %1 Byte Pixeldaten gesendet, angefordert waren %2.</translation>
    </message>
    <message>
        <source>The screen could not be read: %1.</source>
        <translation>Der Bildschirm konnte nicht gelesen werden: %1.</translation>
    </message>
</context>
<context>
    <name>nubo::XcbGlobalShortcuts</name>
    <message>
        <source>The shortcut %1 is not on this keyboard.</source>
        <translation>Das Tastenkürzel %1 gibt es auf dieser Tastatur nicht.</translation>
    </message>
    <message>
        <source>The shortcut %1 is used by another program.</source>
        <translation>Das Tastenkürzel %1 wird von einem anderen Programm verwendet.</translation>
    </message>
</context>
</TS>
