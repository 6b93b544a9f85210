<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>nubo::BackupSettingsPage</name>
    <message>
        <source>Settings file</source>
        <translation>Fichier de réglages</translation>
    </message>
    <message>
        <source>Back Up Settings…</source>
        <translation>Sauvegarder les réglages…</translation>
    </message>
    <message>
        <source>Restore Settings…</source>
        <translation>Restaurer les réglages…</translation>
    </message>
    <message>
        <source>Back Up Settings</source>
        <translation>Sauvegarder les réglages</translation>
    </message>
    <message>
        <source>Settings backups (*.json)</source>
        <translation>Sauvegardes de réglages (*.json)</translation>
    </message>
    <message>
        <source>Restore Settings</source>
        <translation>Restaurer les réglages</translation>
    </message>
    <message>
        <source>Settings backups (*.json);;All files (*)</source>
        <translation>Sauvegardes de réglages (*.json);;Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>Settings backed up to “%1”.</source>
        <translation>Réglages sauvegardés dans «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>Every preference goes into one file you can keep or take to another computer. Passwords and keys never do: they stay in the desktop&apos;s keyring.</source>
        <translation>Tous les réglages tiennent dans un fichier que vous pouvez garder ou emporter sur un autre ordinateur. Jamais les mots de passe ni les clés&#xa0;: ils restent dans le trousseau du bureau.</translation>
    </message>
</context>
<context>
    <name>nubo::CameraStreamSource</name>
    <message>
        <source>The camera “%1” is not connected.</source>
        <translation>La caméra «&#xa0;%1&#xa0;» n&apos;est pas branchée.</translation>
    </message>
    <message>
        <source>The camera “%1” cannot be opened: %2.</source>
        <translation>Impossible d&apos;ouvrir la caméra «&#xa0;%1&#xa0;»&#xa0;:&#xa0;%2.</translation>
    </message>
    <message>
        <source>The camera “%1” gives no pictures: %2.</source>
        <translation>La caméra «&#xa0;%1&#xa0;» ne donne aucune image&#xa0;:&#xa0;%2.</translation>
    </message>
    <message>
        <source>The camera “%1” gives no pictures that can be read.</source>
        <translation>La caméra «&#xa0;%1&#xa0;» ne donne aucune image lisible.</translation>
    </message>
    <message>
        <source>The camera&apos;s pictures (%1) cannot be decoded: %2.</source>
        <translation>Les images de la caméra (%1) ne peuvent pas être décodées&#xa0;:&#xa0;%2.</translation>
    </message>
    <message>
        <source>The camera stopped: %1.</source>
        <translation>La caméra s&apos;est arrêtée&#xa0;:&#xa0;%1.</translation>
    </message>
</context>
<context>
    <name>nubo::CapturePlatformLoader</name>
    <message>
        <source>No X display to capture: DISPLAY is not set.</source>
        <translation>Aucun affichage X à capturer&#xa0;: DISPLAY n&apos;est pas défini.</translation>
    </message>
    <message>
        <source>The X display “%1” (DISPLAY) cannot be reached.</source>
        <translation>L&apos;affichage X «&#xa0;%1&#xa0;» (DISPLAY) est injoignable.</translation>
    </message>
    <message>
        <source>This Wayland desktop has no screen-cast portal to capture through: install the desktop&apos;s portal backend (xdg-desktop-portal-gnome, -kde or -wlr) and log in again.</source>
        <translation>Ce bureau Wayland n&apos;a pas de portail de diffusion d&apos;écran pour capturer&#xa0;: installez le moteur de portail du bureau (xdg-desktop-portal-gnome, -kde ou -wlr) et rouvrez votre session.</translation>
    </message>
    <message>
        <source>There is no capture backend “%1” (%2); this build has: %3.</source>
        <translation>Il n&apos;y a pas de moteur de capture «&#xa0;%1&#xa0;» (%2)&#xa0;; cette version a&#xa0;:&#xa0;%3.</translation>
    </message>
    <message>
        <source>No display to capture: neither DISPLAY nor WAYLAND_DISPLAY is set.</source>
        <translation>Aucun affichage à capturer&#xa0;: ni DISPLAY ni WAYLAND_DISPLAY n&apos;est défini.</translation>
    </message>
</context>
<context>
    <name>nubo::CaptureTypes</name>
    <message>
        <source>Screen Recording permission is required.</source>
        <translation>L&apos;autorisation d&apos;enregistrer l&apos;écran est requise.</translation>
    </message>
    <message>
        <source>Capture was cancelled.</source>
        <translation>La capture a été annulée.</translation>
    </message>
    <message>
        <source>No screen content is available.</source>
        <translation>Aucun contenu d&apos;écran n&apos;est disponible.</translation>
    </message>
</context>
<context>
    <name>nubo::EditorSettingsPage</name>
    <message>
        <source>Tools</source>
        <translation>Outils</translation>
    </message>
    <message>
        <source>Return to Select after drawing</source>
        <translation>Revenir à Sélection après avoir dessiné</translation>
    </message>
    <message>
        <source>Colour and size of new marks</source>
        <translation>Couleur et taille des nouvelles annotations</translation>
    </message>
    <message>
        <source>Colour…</source>
        <translation>Couleur…</translation>
    </message>
    <message>
        <source> pt</source>
        <translation> pt</translation>
    </message>
    <message>
        <source>Blur / Censor</source>
        <translation>Flou / Censure</translation>
    </message>
    <message>
        <source>%1 Colour</source>
        <translation>Couleur&#xa0;:&#xa0;%1</translation>
    </message>
    <message>
        <source>Draw and Number stay active, for one stroke or number after another.</source>
        <translation>Dessin et Numéro restent actifs, pour un trait ou un numéro après l&apos;autre.</translation>
    </message>
    <message>
        <source>The size of the blocks the hidden area is shown in: larger blocks show less.</source>
        <translation>La taille des blocs qui composent la zone masquée&#xa0;: des blocs plus grands en montrent moins.</translation>
    </message>
    <message>
        <source>Strength:</source>
        <translation>Intensité&#xa0;:</translation>
    </message>
    <message>
        <source>Text in shots</source>
        <translation>Texte des captures</translation>
    </message>
    <message>
        <source>Languages:</source>
        <translation>Langues&#xa0;:</translation>
    </message>
    <message>
        <source>Copy Text and Capture Text read these. With none ticked, the desktop&apos;s language and English. More come with the packages tesseract-ocr-LANGUAGE.</source>
        <translation>«&#xa0;Copier le texte&#xa0;» et «&#xa0;Capturer du texte&#xa0;» lisent ces langues. Si aucune n’est cochée, la langue du bureau et l’anglais. D’autres viennent avec les paquets tesseract-ocr-LANGUE.</translation>
    </message>
</context>
<context>
    <name>nubo::EmojiCatalog</name>
    <message>
        <source>Everyday</source>
        <translation>Courants</translation>
    </message>
    <message>
        <source>Only a few emoji are offered: %1 cannot be read (%2). Install the package unicode-data for all of them.</source>
        <translation>Seuls quelques émojis sont proposés&#xa0;:&#xa0;%1 est illisible (%2). Installez le paquet unicode-data pour les avoir tous.</translation>
    </message>
    <message>
        <source>Only a few emoji are offered: %1 lists none. Reinstall the package unicode-data.</source>
        <translation>Seuls quelques émojis sont proposés&#xa0;:&#xa0;%1 n&apos;en liste aucun. Réinstallez le paquet unicode-data.</translation>
    </message>
</context>
<context>
    <name>nubo::GeneralSettingsPage</name>
    <message>
        <source>Start-up</source>
        <translation>Démarrage</translation>
    </message>
    <message>
        <source>Start Nubo Shot when I log in</source>
        <translation>Lancer Nubo Shot à l&apos;ouverture de session</translation>
    </message>
    <message>
        <source>Shots</source>
        <translation>Captures</translation>
    </message>
    <message>
        <source>Show Recent in menu</source>
        <translation>Afficher Récents dans le menu</translation>
    </message>
    <message>
        <source>Include the pointer</source>
        <translation>Inclure le pointeur</translation>
    </message>
    <message>
        <source>Adjust the area before capturing</source>
        <translation>Ajuster la zone avant la capture</translation>
    </message>
    <message>
        <source>Also copy raw shot</source>
        <translation>Copier aussi la capture brute</translation>
    </message>
    <message>
        <source>On Wayland a program sees the clipboard only while one of its windows has the keyboard: images copied in other applications join Recent the next time you use Nubo Shot.</source>
        <translation>Sous Wayland, un programme ne voit le presse-papiers que lorsqu&apos;une de ses fenêtres a le clavier&#xa0;: les images copiées dans d&apos;autres applications rejoignent Récents la prochaine fois que vous utilisez Nubo Shot.</translation>
    </message>
    <message>
        <source>A dragged area keeps its handles: move it with the arrow keys, resize it with Alt and the arrow keys, and press Return or double-click it to capture.</source>
        <translation>Une zone tracée garde ses poignées&#xa0;: déplacez-la avec les flèches, redimensionnez-la avec Alt et les flèches, puis appuyez sur Entrée ou double-cliquez pour la capturer.</translation>
    </message>
    <message>
        <source>Puts every capture on the clipboard at once, before anything is drawn on it.</source>
        <translation>Place chaque capture dans le presse-papiers aussitôt, avant toute annotation.</translation>
    </message>
</context>
<context>
    <name>nubo::ImageWriter</name>
    <message>
        <source>Could not write “%1”: %2.</source>
        <translation>Impossible d&apos;écrire «&#xa0;%1&#xa0;»&#xa0;:&#xa0;%2.</translation>
    </message>
</context>
<context>
    <name>nubo::LevelMeter</name>
    <message>
        <source>Microphone level</source>
        <translation>Niveau du micro</translation>
    </message>
</context>
<context>
    <name>nubo::OutputSettingsPage</name>
    <message>
        <source>Quick save</source>
        <translation>Enregistrement rapide</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Choisir…</translation>
    </message>
    <message>
        <source>Use Downloads</source>
        <translation>Utiliser Téléchargements</translation>
    </message>
    <message>
        <source>Quick-Save Folder</source>
        <translation>Dossier d&apos;enregistrement rapide</translation>
    </message>
    <message>
        <source>File names:</source>
        <translation>Noms de fichier&#xa0;:</translation>
    </message>
    <message>
        <source>Close the editor after</source>
        <translation>Fermer l&apos;éditeur après</translation>
    </message>
    <message>
        <source>Copying</source>
        <translation>Copie</translation>
    </message>
    <message>
        <source>Saving</source>
        <translation>Enregistrement</translation>
    </message>
    <message>
        <source>Dragging out</source>
        <translation>Glisser-déposer</translation>
    </message>
    <message>
        <source>Hold Alt, or pin the editor, to keep it open once.</source>
        <translation>Maintenez Alt, ou épinglez l&apos;éditeur, pour le garder ouvert une fois.</translation>
    </message>
    <message>
        <source>No folder chosen: shots go to Downloads.</source>
        <translation>Aucun dossier choisi&#xa0;: les captures vont dans Téléchargements.</translation>
    </message>
    <message>
        <source>A second shot in the same second gets “ (2)”, and so on: no file is ever replaced.</source>
        <translation>Une deuxième capture dans la même seconde reçoit «&#xa0;(2)&#xa0;», et ainsi de suite&#xa0;: aucun fichier n&apos;est jamais remplacé.</translation>
    </message>
    <message>
        <source>“%1” is missing or cannot be written to: shots go to Downloads until it is back.</source>
        <translation>«&#xa0;%1&#xa0;» est introuvable ou protégé en écriture&#xa0;: les captures vont dans Téléchargements jusqu&apos;à son retour.</translation>
    </message>
    <message>
        <source>Folder:</source>
        <translation>Dossier&#xa0;:</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>Format&#xa0;:</translation>
    </message>
</context>
<context>
    <name>nubo::PermissionsSettingsPage</name>
    <message>
        <source>What Nubo Shot may use</source>
        <translation>Ce que Nubo Shot peut utiliser</translation>
    </message>
    <message>
        <source>Screen capture</source>
        <translation>Capture d&apos;écran</translation>
    </message>
    <message>
        <source>Forget Grant</source>
        <translation>Oublier l&apos;autorisation</translation>
    </message>
    <message>
        <source>The desktop asks again at the next capture</source>
        <translation>Le bureau redemandera à la prochaine capture</translation>
    </message>
    <message>
        <source>Global shortcuts</source>
        <translation>Raccourcis globaux</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>Micro</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Caméra</translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation>Notifications</translation>
    </message>
    <message>
        <source>Keyring</source>
        <translation>Trousseau</translation>
    </message>
    <message>
        <source>Check Again</source>
        <translation>Vérifier à nouveau</translation>
    </message>
    <message>
        <source>Allowed: this X11 desktop lets programs read the screen.</source>
        <translation>Autorisé&#xa0;: ce bureau X11 laisse les programmes lire l&apos;écran.</translation>
    </message>
    <message>
        <source>Available through the sound server.</source>
        <translation>Disponible par le serveur de son.</translation>
    </message>
    <message>
        <source>Available: %1.</source>
        <translation>Disponible&#xa0;:&#xa0;%1.</translation>
    </message>
    <message>
        <source>Shown by the desktop&apos;s notification service.</source>
        <translation>Affichées par le service de notifications du bureau.</translation>
    </message>
    <message>
        <source>Granted through the desktop&apos;s screen-sharing dialog; captures do not ask again.</source>
        <translation>Accordé par la boîte de dialogue de partage d&apos;écran du bureau&#xa0;; les captures ne redemandent pas.</translation>
    </message>
    <message>
        <source>Not yet granted: the desktop shows its screen-sharing dialog at the next capture. Choose every screen and allow it to be remembered.</source>
        <translation>Pas encore accordé&#xa0;: le bureau affichera sa boîte de dialogue de partage d&apos;écran à la prochaine capture. Choisissez tous les écrans et autorisez à mémoriser ce choix.</translation>
    </message>
    <message>
        <source>Bound: the keys on the Shortcuts page work wherever the focus is.</source>
        <translation>Attribués&#xa0;: les touches de la page Raccourcis fonctionnent où que soit le focus.</translation>
    </message>
    <message>
        <source>This desktop gives programs no global keys: bind the commands of the Shortcuts page in the desktop&apos;s keyboard settings.</source>
        <translation>Ce bureau ne donne pas de touches globales aux programmes&#xa0;: attribuez les commandes de la page Raccourcis dans les réglages du clavier du bureau.</translation>
    </message>
    <message>
        <source>No camera can be opened: connect one, and make sure your user is in the “video” group.</source>
        <translation>Aucune caméra ne peut être ouverte&#xa0;: branchez-en une, et vérifiez que votre utilisateur fait partie du groupe «&#xa0;video&#xa0;».</translation>
    </message>
    <message numerus="yes">
        <source>Available: %1 and %n more.</source>
        <translation>
            <numerusform>Disponible&#xa0;:&#xa0;%1 et&#xa0;%n autre.</numerusform>
            <numerusform>Disponible&#xa0;:&#xa0;%1 et&#xa0;%n autres.</numerusform>
        </translation>
    </message>
    <message>
        <source>No notification service: messages appear as the tray icon&apos;s bubbles instead.</source>
        <translation>Aucun service de notifications&#xa0;: les messages s&apos;affichent à la place en bulles de l&apos;icône de la zone de notification.</translation>
    </message>
    <message>
        <source>The desktop&apos;s keyring (Secret Service) keeps upload secrets.</source>
        <translation>Le trousseau du bureau (Secret Service) conserve les secrets d&apos;envoi.</translation>
    </message>
    <message>
        <source>No keyring: install gnome-keyring (or a password manager offering the Secret Service) to store upload secrets.</source>
        <translation>Aucun trousseau&#xa0;: installez gnome-keyring (ou un gestionnaire de mots de passe offrant le Secret Service) pour stocker les secrets d&apos;envoi.</translation>
    </message>
</context>
<context>
    <name>nubo::PortalRequest</name>
    <message>
        <source>There is no session bus to reach the desktop portal.</source>
        <translation>Il n&apos;y a pas de bus de session pour joindre le portail du bureau.</translation>
    </message>
    <message>
        <source>The desktop portal did not answer %1 within %2 s.</source>
        <translation>Le portail du bureau n&apos;a pas répondu à&#xa0;%1 en&#xa0;%2 s.</translation>
    </message>
</context>
<context>
    <name>nubo::PortalScreenCast</name>
    <message>
        <source>The desktop portal offers no screen casting (org.freedesktop.portal.ScreenCast).</source>
        <translation>Le portail du bureau n&apos;offre pas de diffusion d&apos;écran (org.freedesktop.portal.ScreenCast).</translation>
    </message>
    <message>
        <source>The desktop portal made no screen-cast session.</source>
        <translation>Le portail du bureau n&apos;a pas créé de session de diffusion.</translation>
    </message>
    <message>
        <source>The desktop portal gave no PipeWire connection.</source>
        <translation>Le portail du bureau n&apos;a pas fourni de connexion PipeWire.</translation>
    </message>
</context>
<context>
    <name>nubo::PulseAudioCapture</name>
    <message>
        <source>The audio server cannot be reached: no event loop.</source>
        <translation>Le serveur audio est injoignable&#xa0;: pas de boucle d&apos;événements.</translation>
    </message>
    <message>
        <source>No audio server answers.</source>
        <translation>Aucun serveur audio ne répond.</translation>
    </message>
    <message>
        <source>No audio server answers: %1.</source>
        <translation>Aucun serveur audio ne répond&#xa0;:&#xa0;%1.</translation>
    </message>
    <message>
        <source>No audio server answers: it did not reply in time.</source>
        <translation>Aucun serveur audio ne répond&#xa0;: il n&apos;a pas répondu à temps.</translation>
    </message>
    <message>
        <source>The audio server did not answer: %1.</source>
        <translation>Le serveur audio n&apos;a pas répondu&#xa0;:&#xa0;%1.</translation>
    </message>
    <message>
        <source>No sound server answers: install PipeWire (pipewire-pulse) or PulseAudio and log in again.</source>
        <translation>Aucun serveur de son ne répond&#xa0;: installez PipeWire (pipewire-pulse) ou PulseAudio et rouvrez votre session.</translation>
    </message>
    <message>
        <source>The audio source “%1” cannot be recorded: %2.</source>
        <translation>La source audio «&#xa0;%1&#xa0;» ne peut pas être enregistrée&#xa0;:&#xa0;%2.</translation>
    </message>
    <message>
        <source>The audio server has no sound output to record.</source>
        <translation>Le serveur audio n&apos;a aucune sortie son à enregistrer.</translation>
    </message>
    <message>
        <source>The audio server has no microphone to record.</source>
        <translation>Le serveur audio n&apos;a aucun micro à enregistrer.</translation>
    </message>
</context>
<context>
    <name>nubo::RecordingSession</name>
    <message>
        <source>The folder “%1” cannot be created.</source>
        <translation>Impossible de créer le dossier «&#xa0;%1&#xa0;».</translation>
    </message>
</context>
<context>
    <name>nubo::RecordingSettingsPage</name>
    <message>
        <source>Video</source>
        <translation>Vidéo</translation>
    </message>
    <message>
        <source>Frame rate:</source>
        <translation>Images par seconde&#xa0;:</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Son</translation>
    </message>
    <message>
        <source>In the recording</source>
        <translation>Dans l&apos;enregistrement</translation>
    </message>
    <message>
        <source>Show the pointer</source>
        <translation>Afficher le pointeur</translation>
    </message>
    <message>
        <source>Highlight clicks</source>
        <translation>Mettre en évidence les clics</translation>
    </message>
    <message>
        <source>Camera bubble</source>
        <translation>Bulle de caméra</translation>
    </message>
    <message>
        <source>Count down 3 seconds before recording</source>
        <translation>Compte à rebours de 3 secondes avant l&apos;enregistrement</translation>
    </message>
    <message>
        <source>Saving</source>
        <translation>Enregistrement</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Choisir…</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Par défaut</translation>
    </message>
    <message>
        <source>Recordings folder:</source>
        <translation>Dossier des enregistrements&#xa0;:</translation>
    </message>
    <message>
        <source>Recordings Folder</source>
        <translation>Dossier des enregistrements</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Raccourci</translation>
    </message>
    <message>
        <source>Starts a recording, and stops the one under way.</source>
        <translation>Lance un enregistrement, et arrête celui en cours.</translation>
    </message>
    <message>
        <source> (default)</source>
        <translation> (par défaut)</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>Format&#xa0;:</translation>
    </message>
    <message>
        <source>Resolution:</source>
        <translation>Résolution&#xa0;:</translation>
    </message>
    <message>
        <source>Microphone:</source>
        <translation>Micro&#xa0;:</translation>
    </message>
    <message>
        <source>Camera:</source>
        <translation>Caméra&#xa0;:</translation>
    </message>
</context>
<context>
    <name>nubo::RecordingTypes</name>
    <message>
        <source>The media encoder could not accept recording data.</source>
        <translation>L&apos;encodeur n&apos;a pas pu accepter les données de l&apos;enregistrement.</translation>
    </message>
    <message>
        <source>The recording could not be saved. </source>
        <translation>L&apos;enregistrement n&apos;a pas pu être sauvegardé. </translation>
    </message>
    <message>
        <source>Microphone recording requires a running audio server.</source>
        <translation>L&apos;enregistrement du micro demande un serveur audio en marche.</translation>
    </message>
    <message>
        <source>Click highlighting requires the X Input extension.</source>
        <translation>La mise en évidence des clics demande l&apos;extension X Input.</translation>
    </message>
    <message>
        <source>The selected recording codec is unavailable.</source>
        <translation>Le codec d&apos;enregistrement choisi n&apos;est pas disponible.</translation>
    </message>
    <message>
        <source>The recording cannot perform this action right now.</source>
        <translation>L&apos;enregistrement ne peut pas effectuer cette action pour l&apos;instant.</translation>
    </message>
    <message>
        <source>No video frames were recorded.</source>
        <translation>Aucune image vidéo n&apos;a été enregistrée.</translation>
    </message>
    <message>
        <source>Recording audio could not be processed.</source>
        <translation>Le son de l&apos;enregistrement n&apos;a pas pu être traité.</translation>
    </message>
</context>
<context>
    <name>nubo::S3Signing</name>
    <message>
        <source>The S3 endpoint “%1” is not an http or https address.</source>
        <translation>Le point de terminaison S3 «&#xa0;%1&#xa0;» n&apos;est pas une adresse http ou https.</translation>
    </message>
</context>
<context>
    <name>nubo::ShortcutsSettingsPage</name>
    <message>
        <source>Capture and record from anywhere</source>
        <translation>Capturer et enregistrer de n&apos;importe où</translation>
    </message>
    <message>
        <source>Reset to Defaults</source>
        <translation>Rétablir les valeurs par défaut</translation>
    </message>
    <message>
        <source>Bind keys in the desktop&apos;s settings</source>
        <translation>Attribuer des touches dans les réglages du bureau</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Copy the command</source>
        <translation>Copier la commande</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Copiée</translation>
    </message>
    <message>
        <source>This desktop offers no global shortcuts: they are kept for when it does.</source>
        <translation>Ce bureau n&apos;offre pas de raccourcis globaux&#xa0;: ils sont conservés pour le jour où il le fera.</translation>
    </message>
    <message>
        <source>Add a custom shortcut in the desktop&apos;s keyboard settings (GNOME: Settings → Keyboard → Custom Shortcuts; KDE: System Settings → Shortcuts; sway: a bindsym line) that runs the command.</source>
        <translation>Ajoutez un raccourci personnalisé dans les réglages du clavier du bureau (GNOME&#xa0;: Paramètres → Clavier → Raccourcis personnalisés&#xa0;; KDE&#xa0;: Configuration du système → Raccourcis&#xa0;; sway&#xa0;: une ligne bindsym) qui lance la commande.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotApplications</name>
    <message>
        <source>%1 could not be started: %2.</source>
        <translation>Impossible de lancer&#xa0;%1&#xa0;:&#xa0;%2.</translation>
    </message>
    <message>
        <source>%1 cannot be started: its desktop entry %2 has an Exec line that cannot be read.</source>
        <translation>Impossible de lancer&#xa0;%1&#xa0;: son entrée de bureau&#xa0;%2 a une ligne Exec illisible.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotBottomBar</name>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Copy (Ctrl+C) · Hold Alt to keep open</source>
        <translation>Copier (Ctrl+C) · Maintenir Alt pour garder ouvert</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Save to the quick-save folder (Ctrl+S) · Hold Alt to keep open</source>
        <translation>Enregistrer dans le dossier d&apos;enregistrement rapide (Ctrl+S) · Maintenir Alt pour garder ouvert</translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>Enregistrer sous…</translation>
    </message>
    <message>
        <source>Save As (Ctrl+Shift+S)</source>
        <translation>Enregistrer sous (Ctrl+Maj+S)</translation>
    </message>
    <message>
        <source>Open With</source>
        <translation>Ouvrir avec</translation>
    </message>
    <message>
        <source>Open the shot in another application</source>
        <translation>Ouvrir la capture dans une autre application</translation>
    </message>
    <message>
        <source>Upload to R2</source>
        <translation>Envoyer vers R2</translation>
    </message>
    <message>
        <source>Upload to Filebin</source>
        <translation>Envoyer vers Filebin</translation>
    </message>
    <message>
        <source>Cancel upload</source>
        <translation>Annuler l&apos;envoi</translation>
    </message>
    <message>
        <source>Keep this editor open after copying, saving or dragging</source>
        <translation>Garder cet éditeur ouvert après copie, enregistrement ou glisser-déposer</translation>
    </message>
    <message>
        <source>%1 (Default)</source>
        <translation>%1 (par défaut)</translation>
    </message>
    <message>
        <source>No application opens PNG images</source>
        <translation>Aucune application n&apos;ouvre les images PNG</translation>
    </message>
    <message>
        <source>Other Application…</source>
        <translation>Autre application…</translation>
    </message>
    <message>
        <source>Set up a bucket on the Uploads page of the settings first</source>
        <translation>Configurez d&apos;abord un bucket dans la page Envois des réglages</translation>
    </message>
    <message>
        <source>Filebin</source>
        <translation>Filebin</translation>
    </message>
    <message>
        <source>Sending the shot to %1</source>
        <translation>Envoi de la capture vers&#xa0;%1</translation>
    </message>
    <message>
        <source>Upload the shot as PNG to %1; the link is copied</source>
        <translation>Envoyer la capture en PNG vers&#xa0;%1&#xa0;; le lien est copié</translation>
    </message>
    <message>
        <source>your bucket</source>
        <translation>votre bucket</translation>
    </message>
    <message>
        <source>Object key %1 · Click to copy it again · Set a public URL in the settings to get links</source>
        <translation>Clé d&apos;objet&#xa0;%1 · Cliquer pour la copier à nouveau · Indiquez une URL publique dans les réglages pour obtenir des liens</translation>
    </message>
    <message>
        <source>%1 · Click to copy the link again</source>
        <translation>%1 · Cliquer pour copier le lien à nouveau</translation>
    </message>
    <message>
        <source>%1 · Click to try again</source>
        <translation>%1 · Cliquer pour réessayer</translation>
    </message>
    <message>
        <source>Keep Open</source>
        <translation>Garder ouvert</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>Épingler</translation>
    </message>
    <message>
        <source>Pin the shot to the screen, above other windows (Ctrl+Shift+P)</source>
        <translation>Épingler la capture à l’écran, au-dessus des autres fenêtres (Ctrl+Maj+P)</translation>
    </message>
</context>
<context>
    <name>nubo::ShotCameraBubble</name>
    <message>
        <source>No camera is available.</source>
        <translation>Aucune caméra n&apos;est disponible.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotCameraPreview</name>
    <message>
        <source>Drag to move the camera; scroll or drag its corner to resize it</source>
        <translation>Glisser pour déplacer la caméra&#xa0;; faire défiler ou tirer son coin pour la redimensionner</translation>
    </message>
    <message>
        <source>Starting the camera…</source>
        <translation>Démarrage de la caméra…</translation>
    </message>
</context>
<context>
    <name>nubo::ShotCaptureOverlay</name>
    <message>
        <source>Drag to capture · Esc: Cancel</source>
        <translation>Glisser pour capturer · Échap&#xa0;: Annuler</translation>
    </message>
    <message>
        <source>Drag to capture · Space: Window · Esc: Cancel</source>
        <translation>Glisser pour capturer · Espace&#xa0;: Fenêtre · Échap&#xa0;: Annuler</translation>
    </message>
    <message>
        <source>Click a window · Space: Area · Esc: Cancel</source>
        <translation>Cliquer sur une fenêtre · Espace&#xa0;: Zone · Échap&#xa0;: Annuler</translation>
    </message>
    <message>
        <source>Drag to select scroll area · Esc: Cancel</source>
        <translation>Glisser pour choisir la zone à faire défiler · Échap&#xa0;: Annuler</translation>
    </message>
    <message>
        <source>Drag</source>
        <translation>Glisser</translation>
    </message>
    <message>
        <source>Frame the area to record</source>
        <translation>Encadrer la zone à enregistrer</translation>
    </message>
    <message>
        <source>Frame an area</source>
        <translation>Encadrer une zone</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espace</translation>
    </message>
    <message>
        <source>Pick a window instead</source>
        <translation>Choisir plutôt une fenêtre</translation>
    </message>
    <message>
        <source>Click or F</source>
        <translation>Clic ou F</translation>
    </message>
    <message>
        <source>Record the whole screen</source>
        <translation>Enregistrer tout l&apos;écran</translation>
    </message>
    <message>
        <source>Arrows</source>
        <translation>Flèches</translation>
    </message>
    <message>
        <source>Move the area (Shift: 10 pt)</source>
        <translation>Déplacer la zone (Maj&#xa0;: 10 pt)</translation>
    </message>
    <message>
        <source>Alt+Arrows</source>
        <translation>Alt+Flèches</translation>
    </message>
    <message>
        <source>Resize the area</source>
        <translation>Redimensionner la zone</translation>
    </message>
    <message>
        <source>Return, Double-Click</source>
        <translation>Entrée, double-clic</translation>
    </message>
    <message>
        <source>Record the area</source>
        <translation>Enregistrer la zone</translation>
    </message>
    <message>
        <source>Capture the area</source>
        <translation>Capturer la zone</translation>
    </message>
    <message>
        <source>Release</source>
        <translation>Relâcher</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Échap</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Click here to hide this for good</source>
        <translation>Cliquer ici pour ne plus afficher ceci</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Touches</translation>
    </message>
    <message>
        <source>Drag the area or its handles · Arrows: Move · Alt+Arrows: Resize · Shift: 10 pt · Return or Double-Click: Record · Esc: Cancel</source>
        <translation>Glisser la zone ou ses poignées · Flèches&#xa0;: Déplacer · Alt+Flèches&#xa0;: Redimensionner · Maj&#xa0;: 10 pt · Entrée ou double-clic&#xa0;: Enregistrer · Échap&#xa0;: Annuler</translation>
    </message>
    <message>
        <source>Drag the area or its handles · Arrows: Move · Alt+Arrows: Resize · Shift: 10 pt · Return or Double-Click: Capture · Esc: Cancel</source>
        <translation>Glisser la zone ou ses poignées · Flèches&#xa0;: Déplacer · Alt+Flèches&#xa0;: Redimensionner · Maj&#xa0;: 10 pt · Entrée ou double-clic&#xa0;: Capturer · Échap&#xa0;: Annuler</translation>
    </message>
    <message>
        <source>Drag an area to record · Click or F: Whole Screen · Space: Pick a Window · Esc: Cancel</source>
        <translation>Glisser une zone à enregistrer · Clic ou F&#xa0;: Tout l&apos;écran · Espace&#xa0;: Choisir une fenêtre · Échap&#xa0;: Annuler</translation>
    </message>
    <message>
        <source>Drag to capture · Space: Pick a Window · Esc: Cancel</source>
        <translation>Glisser pour capturer · Espace&#xa0;: Choisir une fenêtre · Échap&#xa0;: Annuler</translation>
    </message>
    <message>
        <source>Drag an area to record · Click or F: Whole Screen · Esc: Cancel</source>
        <translation>Glisser une zone à enregistrer · Clic ou F&#xa0;: Tout l&apos;écran · Échap&#xa0;: Annuler</translation>
    </message>
    <message>
        <source>Drag an area to record · Click or F: Whole Screen · Space: Window · Esc: Cancel</source>
        <translation>Glisser une zone à enregistrer · Clic ou F&#xa0;: Tout l&apos;écran · Espace&#xa0;: Fenêtre · Échap&#xa0;: Annuler</translation>
    </message>
    <message>
        <source>Click a window to record · Space: Area · F: Whole Screen · Esc: Cancel</source>
        <translation>Cliquer sur une fenêtre à enregistrer · Espace&#xa0;: Zone · F&#xa0;: Tout l&apos;écran · Échap&#xa0;: Annuler</translation>
    </message>
    <message>
        <source>Drag to select scroll area, scroll it to its end, then choose Capture Scrolling again · Esc: Cancel</source>
        <translation>Encadrer la zone à faire défiler, la faire défiler jusqu&apos;au bout, puis choisir de nouveau Capture défilante · Échap&#xa0;: Annuler</translation>
    </message>
    <message>
        <source>P</source>
        <translation>P</translation>
    </message>
    <message>
        <source>Pin it to the screen</source>
        <translation>L’épingler à l’écran</translation>
    </message>
</context>
<context>
    <name>nubo::ShotClipboard</name>
    <message>
        <source>The screenshot could not be put on the clipboard. %1</source>
        <translation>Impossible de placer la capture dans le presse-papiers.&#xa0;%1</translation>
    </message>
</context>
<context>
    <name>nubo::ShotCropBar</name>
    <message>
        <source>Free</source>
        <translation>Libre</translation>
    </message>
    <message>
        <source>Square</source>
        <translation>Carré</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Recadrer</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Largeur</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Hauteur</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Terminé</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>nubo::ShotDocument</name>
    <message>
        <source>There is not enough memory for an image of %1 × %2 pixels.</source>
        <translation>Mémoire insuffisante pour une image de&#xa0;%1 ×&#xa0;%2 pixels.</translation>
    </message>
    <message>
        <source>An image of the shot is missing (there may not have been enough memory for it).</source>
        <translation>Une image de la capture manque (la mémoire a peut-être manqué).</translation>
    </message>
    <message>
        <source>An image of %1 × %2 pixels is too large: Nubo Shot takes images of up to %L3 pixels, none wider or taller than %L4.</source>
        <translation>Une image de&#xa0;%1 ×&#xa0;%2 pixels est trop grande&#xa0;: Nubo Shot accepte des images jusqu&apos;à&#xa0;%L3 pixels, aucune plus large ou plus haute que&#xa0;%L4.</translation>
    </message>
    <message>
        <source>The images of this shot would hold %L1 pixels together; a shot holds at most %L2.</source>
        <translation>Les images de cette capture totaliseraient&#xa0;%L1 pixels&#xa0;; une capture en contient au plus&#xa0;%L2.</translation>
    </message>
    <message>
        <source>The shot would be %L1 × %L2 points; it may be at most %L3 points wide and tall.</source>
        <translation>La capture ferait&#xa0;%L1 ×&#xa0;%L2 points&#xa0;; elle peut mesurer au plus&#xa0;%L3 points de large et de haut.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotDragHandle</name>
    <message>
        <source>Drag Me</source>
        <translation>Glissez-moi</translation>
    </message>
    <message>
        <source>Drag PNG · Hold Alt at drop to keep open</source>
        <translation>Glisser le PNG · Maintenir Alt au dépôt pour garder ouvert</translation>
    </message>
</context>
<context>
    <name>nubo::ShotEditorModel</name>
    <message>
        <source>There is not enough memory to add an image of %1 × %2 pixels.</source>
        <translation>Mémoire insuffisante pour ajouter une image de&#xa0;%1 ×&#xa0;%2 pixels.</translation>
    </message>
    <message>
        <source>There is no image to add (it could not be read, or it is larger than Nubo Shot takes).</source>
        <translation>Aucune image à ajouter (elle n&apos;a pas pu être lue, ou elle dépasse ce que Nubo Shot accepte).</translation>
    </message>
</context>
<context>
    <name>nubo::ShotEditorWindow</name>
    <message>
        <source>Tools</source>
        <translation>Outils</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Sortie</translation>
    </message>
    <message>
        <source>Width %1 pt</source>
        <translation>Largeur&#xa0;%1 pt</translation>
    </message>
    <message>
        <source>Size %1 pt</source>
        <translation>Taille&#xa0;%1 pt</translation>
    </message>
    <message>
        <source>Strength %1</source>
        <translation>Intensité&#xa0;%1</translation>
    </message>
    <message>
        <source>A text holds at most %L1 characters.</source>
        <translation>Un texte contient au plus&#xa0;%L1 caractères.</translation>
    </message>
    <message>
        <source>Add Image</source>
        <translation>Ajouter une image</translation>
    </message>
    <message>
        <source>Images (*.png *.jpg *.jpeg *.webp *.bmp *.gif)</source>
        <translation>Images (*.png *.jpg *.jpeg *.webp *.bmp *.gif)</translation>
    </message>
    <message>
        <source>Could Not Add Image</source>
        <translation>Impossible d&apos;ajouter l&apos;image</translation>
    </message>
    <message>
        <source>Select annotations to cut them</source>
        <translation>Sélectionnez des annotations pour les couper</translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation>Molette</translation>
    </message>
    <message>
        <source>Size of the tool</source>
        <translation>Taille de l&apos;outil</translation>
    </message>
    <message>
        <source>Space+Drag</source>
        <translation>Espace+Glisser</translation>
    </message>
    <message>
        <source>Move around the shot</source>
        <translation>Se déplacer dans la capture</translation>
    </message>
    <message>
        <source>Arrows</source>
        <translation>Flèches</translation>
    </message>
    <message>
        <source>Move the selection</source>
        <translation>Déplacer la sélection</translation>
    </message>
    <message>
        <source>Ctrl+Z, Ctrl+Shift+Z</source>
        <translation>Ctrl+Z, Ctrl+Maj+Z</translation>
    </message>
    <message>
        <source>Undo, Redo</source>
        <translation>Annuler, Rétablir</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Ctrl+C</translation>
    </message>
    <message>
        <source>Copy the shot</source>
        <translation>Copier la capture</translation>
    </message>
    <message>
        <source>Ctrl+S</source>
        <translation>Ctrl+S</translation>
    </message>
    <message>
        <source>Save the shot</source>
        <translation>Enregistrer la capture</translation>
    </message>
    <message>
        <source>Ctrl+Shift+S</source>
        <translation>Ctrl+Maj+S</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Enregistrer sous</translation>
    </message>
    <message>
        <source>Ctrl+1, Ctrl+9</source>
        <translation>Ctrl+1, Ctrl+9</translation>
    </message>
    <message>
        <source>Actual size, Fit</source>
        <translation>Taille réelle, Ajuster</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Échap</translation>
    </message>
    <message>
        <source>Deselect, then close</source>
        <translation>Désélectionner, puis fermer</translation>
    </message>
    <message>
        <source>Discard this screenshot?</source>
        <translation>Abandonner cette capture&#xa0;?</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Abandonner</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Touches</translation>
    </message>
    <message>
        <source>Click here to hide this for good</source>
        <translation>Cliquer ici pour ne plus afficher ceci</translation>
    </message>
    <message>
        <source>Your changes to this screenshot have not been copied or saved.</source>
        <translation>Vos modifications de cette capture n&apos;ont été ni copiées ni enregistrées.</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Tout sélectionner</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Copy and Keep Open</source>
        <translation>Copier et garder ouvert</translation>
    </message>
    <message>
        <source>Save and Keep Open</source>
        <translation>Enregistrer et garder ouvert</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Couper</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message>
        <source>Bring Forward</source>
        <translation>Avancer</translation>
    </message>
    <message>
        <source>Send Backward</source>
        <translation>Reculer</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Zoom avant</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Zoom arrière</translation>
    </message>
    <message>
        <source>Actual Size</source>
        <translation>Taille réelle</translation>
    </message>
    <message>
        <source>Fit in Window</source>
        <translation>Ajuster à la fenêtre</translation>
    </message>
    <message>
        <source>%1 copied</source>
        <translation>%1 copié</translation>
    </message>
    <message>
        <source>Copy Text</source>
        <translation>Copier le texte</translation>
    </message>
    <message>
        <source>Copy the shot&apos;s text, or the selected words (Ctrl+Shift+C)</source>
        <translation>Copier le texte de la capture, ou les mots choisis (Ctrl+Maj+C)</translation>
    </message>
    <message>
        <source>Hide Sensitive Text…</source>
        <translation>Masquer le texte sensible…</translation>
    </message>
    <message>
        <source>Pixelate e-mail addresses, phone numbers, keys and the like (Ctrl+Shift+H)</source>
        <translation>Pixeliser adresses e-mail, numéros de téléphone, clés et autres (Ctrl+Maj+H)</translation>
    </message>
    <message>
        <source>Reading the text…</source>
        <translation>Lecture du texte…</translation>
    </message>
    <message>
        <source>No text found in this shot</source>
        <translation>Aucun texte trouvé dans cette capture</translation>
    </message>
    <message numerus="yes">
        <source>Copied %n word(s)</source>
        <translation>
            <numerusform>%n mot copié</numerusform>
            <numerusform>%n mots copiés</numerusform>
        </translation>
    </message>
    <message>
        <source>No sensitive text found</source>
        <translation>Aucun texte sensible trouvé</translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) hidden</source>
        <translation>
            <numerusform>%n élément masqué</numerusform>
            <numerusform>%n éléments masqués</numerusform>
        </translation>
    </message>
    <message>
        <source>Ctrl+Shift+C</source>
        <translation>Ctrl+Maj+C</translation>
    </message>
    <message>
        <source>Copy the text</source>
        <translation>Copier le texte</translation>
    </message>
    <message>
        <source>Pin to Screen</source>
        <translation>Épingler à l’écran</translation>
    </message>
</context>
<context>
    <name>nubo::ShotEmojiPicker</name>
    <message>
        <source>Search emoji</source>
        <translation>Rechercher un émoji</translation>
    </message>
    <message>
        <source>Recently Used</source>
        <translation>Utilisés récemment</translation>
    </message>
    <message>
        <source>No emoji is called “%1”.</source>
        <translation>Aucun émoji ne s&apos;appelle «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>Emoji you place show here.</source>
        <translation>Les émojis que vous placez apparaissent ici.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotFeature</name>
    <message>
        <source>Could Not Copy Screenshot</source>
        <translation>Impossible de copier la capture</translation>
    </message>
    <message>
        <source>%1 is not available yet.</source>
        <translation>%1 n&apos;est pas encore disponible.</translation>
    </message>
    <message>
        <source>Could Not Capture Screen</source>
        <translation>Impossible de capturer l&apos;écran</translation>
    </message>
    <message>
        <source>Could Not Open Recent Image</source>
        <translation>Impossible d&apos;ouvrir l&apos;image récente</translation>
    </message>
    <message>
        <source>Could Not Open Screenshot</source>
        <translation>Impossible d’ouvrir la capture d’écran</translation>
    </message>
    <message>
        <source>Could Not Read Text</source>
        <translation>Impossible de lire le texte</translation>
    </message>
    <message>
        <source>No Text Found</source>
        <translation>Aucun texte trouvé</translation>
    </message>
    <message>
        <source>No text could be read in the framed area.</source>
        <translation>Aucun texte n’a pu être lu dans la zone choisie.</translation>
    </message>
    <message>
        <source>Open in Editor</source>
        <translation>Ouvrir dans l’éditeur</translation>
    </message>
    <message numerus="yes">
        <source>Copied %n word(s)</source>
        <translation>
            <numerusform>%n mot copié</numerusform>
            <numerusform>%n mots copiés</numerusform>
        </translation>
    </message>
    <message>
        <source>No area has been captured yet. Frame one with Capture Area first.</source>
        <translation>Aucune zone n’a encore été capturée. Choisissez-en d’abord une avec «&#xa0;Capturer une zone&#xa0;».</translation>
    </message>
    <message>
        <source>The display of the previous area is no longer connected.</source>
        <translation>L’écran de la zone précédente n’est plus branché.</translation>
    </message>
    <message>
        <source>The display of the previous area changed its size (%1 × %2 pixels, now %3 × %4). Frame the area again.</source>
        <translation>L’écran de la zone précédente a changé de taille (%1 × %2 pixels, maintenant %3 × %4). Choisissez de nouveau la zone.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotGlobalShortcuts</name>
    <message>
        <source>Record Screen</source>
        <translation>Enregistrer l&apos;écran</translation>
    </message>
    <message>
        <source>Capture Area</source>
        <translation>Capturer une zone</translation>
    </message>
    <message>
        <source>Capture Window</source>
        <translation>Capturer une fenêtre</translation>
    </message>
    <message>
        <source>Capture Fullscreen</source>
        <translation>Capturer tout l&apos;écran</translation>
    </message>
    <message>
        <source>Capture Scrolling</source>
        <translation>Capture défilante</translation>
    </message>
    <message>
        <source>Global shortcuts are not available on this desktop.</source>
        <translation>Les raccourcis globaux ne sont pas disponibles sur ce bureau.</translation>
    </message>
    <message>
        <source>Capture Text</source>
        <translation>Capturer du texte</translation>
    </message>
    <message>
        <source>Capture Previous Area</source>
        <translation>Capturer la zone précédente</translation>
    </message>
</context>
<context>
    <name>nubo::ShotImageFile</name>
    <message>
        <source>Could not read “%1”: %2.</source>
        <translation>Impossible de lire «&#xa0;%1&#xa0;»&#xa0;:&#xa0;%2.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotNotifications</name>
    <message>
        <source>Saved to %1</source>
        <translation>Enregistrée dans&#xa0;%1</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Afficher dans le dossier</translation>
    </message>
</context>
<context>
    <name>nubo::ShotOutputActions</name>
    <message>
        <source>Upload</source>
        <translation>Envoi</translation>
    </message>
    <message>
        <source>Upload outcome unknown. Retry may create a duplicate upload.</source>
        <translation>Résultat de l&apos;envoi inconnu. Réessayer peut créer un envoi en double.</translation>
    </message>
    <message>
        <source>Retry upload</source>
        <translation>Réessayer l&apos;envoi</translation>
    </message>
    <message>
        <source>Could Not Copy Screenshot</source>
        <translation>Impossible de copier la capture</translation>
    </message>
    <message>
        <source>Could Not Save Screenshot</source>
        <translation>Impossible d&apos;enregistrer la capture</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Enregistrer sous</translation>
    </message>
    <message>
        <source>Could Not Drag Screenshot</source>
        <translation>Impossible de glisser la capture</translation>
    </message>
    <message>
        <source>Could Not Open Screenshot</source>
        <translation>Impossible d&apos;ouvrir la capture</translation>
    </message>
    <message>
        <source>Could Not Share Screenshot</source>
        <translation>Impossible de partager la capture</translation>
    </message>
    <message>
        <source>Copied %1</source>
        <translation>%1 copié</translation>
    </message>
    <message>
        <source>Filebin is public: anyone with the link can see this shot.</source>
        <translation>Filebin est public&#xa0;: toute personne ayant le lien peut voir cette capture.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotPinWindow</name>
    <message>
        <source>Pinned Shot</source>
        <translation>Capture épinglée</translation>
    </message>
    <message>
        <source>Drag to move · Wheel: Zoom · Ctrl+Wheel: Opacity · Double-Click or Esc: Close</source>
        <translation>Glisser pour déplacer · Molette&#xa0;: zoom · Ctrl+molette&#xa0;: opacité · Double-clic ou Échap&#xa0;: fermer</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Open in Editor</source>
        <translation>Ouvrir dans l’éditeur</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Opacité</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>nubo::ShotPins</name>
    <message>
        <source>Could Not Save Screenshot</source>
        <translation>Impossible d’enregistrer la capture</translation>
    </message>
    <message>
        <source>Pinned as a normal window</source>
        <translation>Épinglée comme fenêtre normale</translation>
    </message>
    <message>
        <source>This desktop does not let Nubo Shot keep a pinned shot above other windows; it stays where the desktop puts it.</source>
        <translation>Ce bureau ne permet pas à Nubo Shot de garder une capture épinglée au-dessus des autres fenêtres&#xa0;; elle reste là où le bureau la place.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingControlBar</name>
    <message>
        <source>Pause Recording</source>
        <translation>Mettre l&apos;enregistrement en pause</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>Arrêter l&apos;enregistrement</translation>
    </message>
    <message>
        <source>Cancel Recording</source>
        <translation>Annuler l&apos;enregistrement</translation>
    </message>
    <message>
        <source>Resume Recording</source>
        <translation>Reprendre l&apos;enregistrement</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingControls</name>
    <message>
        <source>No camera is available.</source>
        <translation>Aucune caméra n&apos;est disponible.</translation>
    </message>
    <message>
        <source>System Audio</source>
        <translation>Son du système</translation>
    </message>
    <message>
        <source>Record what the computer plays</source>
        <translation>Enregistrer ce que l&apos;ordinateur joue</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>Micro</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Caméra</translation>
    </message>
    <message>
        <source>Show your camera as a round bubble in the recording</source>
        <translation>Afficher votre caméra dans une bulle ronde dans l&apos;enregistrement</translation>
    </message>
    <message>
        <source>Cursor</source>
        <translation>Pointeur</translation>
    </message>
    <message>
        <source>Show the pointer in the recording</source>
        <translation>Afficher le pointeur dans l&apos;enregistrement</translation>
    </message>
    <message>
        <source>Clicks</source>
        <translation>Clics</translation>
    </message>
    <message>
        <source>Ring every click in the recording</source>
        <translation>Entourer chaque clic dans l&apos;enregistrement</translation>
    </message>
    <message>
        <source>30 fps</source>
        <translation>30 i/s</translation>
    </message>
    <message>
        <source>60 fps</source>
        <translation>60 i/s</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Native</source>
        <translation>Native</translation>
    </message>
    <message>
        <source>One pixel a point: smaller files on HiDPI screens</source>
        <translation>Un pixel par point&#xa0;: fichiers plus petits sur les écrans HiDPI</translation>
    </message>
    <message>
        <source>Every pixel of the screen</source>
        <translation>Chaque pixel de l&apos;écran</translation>
    </message>
    <message>
        <source>Default microphone</source>
        <translation>Micro par défaut</translation>
    </message>
    <message>
        <source>%1 (not connected)</source>
        <translation>%1 (non connecté)</translation>
    </message>
    <message>
        <source>HEVC needs a hardware video encoder (VAAPI or NVENC), and this computer has none.</source>
        <translation>Le HEVC demande un encodeur vidéo matériel (VAAPI ou NVENC), et cet ordinateur n&apos;en a pas.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingCountdown</name>
    <message>
        <source>Esc: Cancel</source>
        <translation>Échap&#xa0;: Annuler</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingFlow</name>
    <message>
        <source>This desktop cannot be recorded by Nubo Shot yet.</source>
        <translation>Nubo Shot ne peut pas encore enregistrer ce bureau.</translation>
    </message>
    <message>
        <source>Could Not Record Screen</source>
        <translation>Impossible d&apos;enregistrer l&apos;écran</translation>
    </message>
    <message>
        <source>window picked at the start</source>
        <translation>fenêtre choisie au départ</translation>
    </message>
    <message>
        <source>Recording the screen</source>
        <translation>Enregistrement de l&apos;écran</translation>
    </message>
    <message>
        <source>Recording saved</source>
        <translation>Enregistrement sauvegardé</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingOptionsBar</name>
    <message>
        <source>Cancel (Esc)</source>
        <translation>Annuler (Échap)</translation>
    </message>
    <message>
        <source>Stop from the menu</source>
        <translation>Arrêter depuis le menu</translation>
    </message>
    <message>
        <source>Start Recording</source>
        <translation>Démarrer l&apos;enregistrement</translation>
    </message>
    <message>
        <source>Start (Return)</source>
        <translation>Démarrer (Entrée)</translation>
    </message>
    <message>
        <source>Or by the shortcut, or with “nuboshot capture recording”</source>
        <translation>Ou par le raccourci, ou avec «&#xa0;nuboshot capture recording&#xa0;»</translation>
    </message>
</context>
<context>
    <name>nubo::ShotReviewTimeline</name>
    <message>
        <source>Blur %1</source>
        <translation>Flou&#xa0;%1</translation>
    </message>
</context>
<context>
    <name>nubo::ShotReviewWindow</name>
    <message>
        <source>%1 — Review</source>
        <translation>%1 — Révision</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lire</translation>
    </message>
    <message>
        <source>Play or pause (Space)</source>
        <translation>Lire ou mettre en pause (Espace)</translation>
    </message>
    <message>
        <source>Split</source>
        <translation>Scinder</translation>
    </message>
    <message>
        <source>Split at the playhead (S)</source>
        <translation>Scinder à la tête de lecture (S)</translation>
    </message>
    <message>
        <source>Remove Segment</source>
        <translation>Supprimer le segment</translation>
    </message>
    <message>
        <source>Cut out the segment under the playhead (Delete)</source>
        <translation>Couper le segment sous la tête de lecture (Suppr)</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>Flouter</translation>
    </message>
    <message>
        <source>Drag over the picture to blur a region (B)</source>
        <translation>Glisser sur l&apos;image pour flouter une zone (B)</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Recadrer</translation>
    </message>
    <message>
        <source>Crop the picture (C)</source>
        <translation>Recadrer l&apos;image (C)</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Muet</translation>
    </message>
    <message>
        <source>Export without sound (M)</source>
        <translation>Exporter sans le son (M)</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Undo (Ctrl+Z)</source>
        <translation>Annuler (Ctrl+Z)</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>Redo (Ctrl+Shift+Z)</source>
        <translation>Rétablir (Ctrl+Maj+Z)</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Afficher dans le dossier</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>Enregistrer sous…</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exporter</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>%1 × %2 · about %3</source>
        <translation>%1 ×&#xa0;%2 · environ&#xa0;%3</translation>
    </message>
    <message>
        <source>Save Edited Recording</source>
        <translation>Enregistrer l&apos;enregistrement modifié</translation>
    </message>
    <message>
        <source>MPEG-4 movie (*.mp4)</source>
        <translation>Vidéo MPEG-4 (*.mp4)</translation>
    </message>
    <message>
        <source>Export cancelled</source>
        <translation>Export annulé</translation>
    </message>
    <message>
        <source>Export failed</source>
        <translation>Échec de l&apos;export</translation>
    </message>
    <message>
        <source>Export Failed</source>
        <translation>Échec de l&apos;export</translation>
    </message>
    <message>
        <source>Discard Edits?</source>
        <translation>Abandonner les modifications&#xa0;?</translation>
    </message>
    <message>
        <source>Your edits to “%1” have not been exported.</source>
        <translation>Vos modifications de «&#xa0;%1&#xa0;» n&apos;ont pas été exportées.</translation>
    </message>
    <message>
        <source>The recording itself stays as it is.</source>
        <translation>L&apos;enregistrement lui-même reste tel quel.</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Abandonner</translation>
    </message>
    <message>
        <source>Copied “%1”</source>
        <translation>«&#xa0;%1&#xa0;» copié</translation>
    </message>
    <message>
        <source>Exporting “%1”…</source>
        <translation>Export de «&#xa0;%1&#xa0;»…</translation>
    </message>
    <message>
        <source>Exported “%1”</source>
        <translation>«&#xa0;%1&#xa0;» exporté</translation>
    </message>
    <message>
        <source>Export format and size</source>
        <translation>Format et taille de l’export</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>MP4 Movie</source>
        <translation>Film MP4</translation>
    </message>
    <message>
        <source>GIF</source>
        <translation>GIF</translation>
    </message>
    <message>
        <source>Animated WebP</source>
        <translation>WebP animé</translation>
    </message>
    <message>
        <source>Frame Rate</source>
        <translation>Images par seconde</translation>
    </message>
    <message>
        <source>%1 fps</source>
        <translation>%1 i/s</translation>
    </message>
    <message>
        <source>Width · Never upscaled</source>
        <translation>Largeur · Jamais agrandie</translation>
    </message>
    <message>
        <source>Original (%1 px)</source>
        <translation>Originale (%1 px)</translation>
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
        <translation>%1 · %2 i/s · %3 px</translation>
    </message>
    <message>
        <source>WebP</source>
        <translation>WebP</translation>
    </message>
    <message>
        <source>GIF animation (*.gif)</source>
        <translation>Animation GIF (*.gif)</translation>
    </message>
    <message>
        <source>Animated WebP (*.webp)</source>
        <translation>WebP animé (*.webp)</translation>
    </message>
</context>
<context>
    <name>nubo::ShotSaveOptions</name>
    <message>
        <source>%1 %</source>
        <translation>%1&#xa0;%</translation>
    </message>
    <message>
        <source>&amp;Quality:</source>
        <translation>&amp;Qualité&#xa0;:</translation>
    </message>
    <message>
        <source>S&amp;cale:</source>
        <translation>É&amp;chelle&#xa0;:</translation>
    </message>
</context>
<context>
    <name>nubo::ShotScrollingPanel</name>
    <message>
        <source>Scrolling Capture</source>
        <translation>Capture défilante</translation>
    </message>
    <message>
        <source>Return: Done · Esc: Cancel</source>
        <translation>Entrée&#xa0;: Terminé · Échap&#xa0;: Annuler</translation>
    </message>
    <message>
        <source>Auto-scroll</source>
        <translation>Défilement auto</translation>
    </message>
    <message>
        <source>Scroll to the end by itself; any key or click stops</source>
        <translation>Faire défiler jusqu&apos;au bout tout seul&#xa0;; une touche ou un clic l&apos;arrête</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Terminé</translation>
    </message>
    <message>
        <source>Scroll down to the end, or use Auto-scroll.</source>
        <translation>Faites défiler jusqu&apos;au bout, ou utilisez Défilement auto.</translation>
    </message>
    <message>
        <source>%1 px tall</source>
        <translation>%1 px de haut</translation>
    </message>
    <message>
        <source>Stop Auto-scroll</source>
        <translation>Arrêter le défilement auto</translation>
    </message>
</context>
<context>
    <name>nubo::ShotScrollingSession</name>
    <message>
        <source>this desktop offers no region streams</source>
        <translation>ce bureau n&apos;offre pas de flux de zone</translation>
    </message>
    <message>
        <source>Auto-scroll is not available on this desktop: scroll by hand.</source>
        <translation>Le défilement auto n&apos;est pas disponible sur ce bureau&#xa0;: faites défiler à la main.</translation>
    </message>
    <message>
        <source>Scroll back up a little</source>
        <translation>Remontez un peu</translation>
    </message>
    <message>
        <source>Auto-scrolling… Any key or click stops it.</source>
        <translation>Défilement auto… Une touche ou un clic l&apos;arrête.</translation>
    </message>
    <message>
        <source>Keep scrolling down; Done when you reach the end.</source>
        <translation>Continuez à faire défiler&#xa0;; Terminé une fois au bout.</translation>
    </message>
    <message>
        <source>Reached the size limit.</source>
        <translation>Taille maximale atteinte.</translation>
    </message>
    <message>
        <source>The scrolling capture reached its size limit and stopped at %1 pixels.</source>
        <translation>La capture défilante a atteint sa taille maximale et s&apos;est arrêtée à&#xa0;%1 pixels.</translation>
    </message>
    <message>
        <source>Auto-scroll stopped.</source>
        <translation>Défilement auto arrêté.</translation>
    </message>
    <message>
        <source>Auto-scroll reached the end: press Done.</source>
        <translation>Le défilement auto est arrivé au bout&#xa0;: appuyez sur Terminé.</translation>
    </message>
    <message>
        <source>this desktop cannot scroll for us</source>
        <translation>ce bureau ne peut pas faire défiler pour nous</translation>
    </message>
    <message>
        <source>Auto-scroll could not start: %1.</source>
        <translation>Le défilement auto n&apos;a pas pu démarrer&#xa0;:&#xa0;%1.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotSensitiveTextDialog</name>
    <message>
        <source>E-mail address</source>
        <translation>Adresse e-mail</translation>
    </message>
    <message>
        <source>Phone number</source>
        <translation>Numéro de téléphone</translation>
    </message>
    <message>
        <source>IP address</source>
        <translation>Adresse IP</translation>
    </message>
    <message>
        <source>Card number</source>
        <translation>Numéro de carte</translation>
    </message>
    <message>
        <source>Key or token</source>
        <translation>Clé ou jeton</translation>
    </message>
    <message>
        <source>Private key</source>
        <translation>Clé privée</translation>
    </message>
    <message>
        <source>Hide Sensitive Text</source>
        <translation>Masquer le texte sensible</translation>
    </message>
    <message>
        <source>The ticked text is pixelated. Untick what may stay readable.</source>
        <translation>Le texte coché est pixelisé. Décochez ce qui peut rester lisible.</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>Masquer</translation>
    </message>
</context>
<context>
    <name>nubo::ShotSettingsBackup</name>
    <message>
        <source>not a setting of this version</source>
        <translation>pas un réglage de cette version</translation>
    </message>
    <message>
        <source>not true or false</source>
        <translation>ni true ni false</translation>
    </message>
    <message>
        <source>not a text</source>
        <translation>pas un texte</translation>
    </message>
    <message>
        <source>not png, jpeg, heic or webp</source>
        <translation>ni png, ni jpeg, ni heic, ni webp</translation>
    </message>
    <message>
        <source>not auto, r2 or filebin</source>
        <translation>ni auto, ni r2, ni filebin</translation>
    </message>
    <message>
        <source>not a capture of this version</source>
        <translation>pas une capture de cette version</translation>
    </message>
    <message>
        <source>not a key</source>
        <translation>pas une combinaison de touches</translation>
    </message>
    <message>
        <source>not a tool of this version</source>
        <translation>pas un outil de cette version</translation>
    </message>
    <message>
        <source>not a style</source>
        <translation>pas un style</translation>
    </message>
    <message>
        <source>not a plain value</source>
        <translation>pas une valeur simple</translation>
    </message>
    <message>
        <source>no settings in it</source>
        <translation>aucun réglage dedans</translation>
    </message>
    <message>
        <source>The file is not a Nubo Shot settings backup: nothing was restored.</source>
        <translation>Le fichier n&apos;est pas une sauvegarde de réglages de Nubo Shot&#xa0;: rien n&apos;a été restauré.</translation>
    </message>
    <message>
        <source>secrets are never restored from a file</source>
        <translation>les secrets ne sont jamais restaurés depuis un fichier</translation>
    </message>
    <message>
        <source>“%1” is not a file.</source>
        <translation>«&#xa0;%1&#xa0;» n&apos;est pas un fichier.</translation>
    </message>
    <message>
        <source>“%1” cannot be read: %2.</source>
        <translation>«&#xa0;%1&#xa0;» est illisible&#xa0;:&#xa0;%2.</translation>
    </message>
    <message>
        <source> The backup comes from a newer Nubo Shot.</source>
        <translation> La sauvegarde vient d&apos;une version plus récente de Nubo Shot.</translation>
    </message>
    <message>
        <source> Skipped: </source>
        <translation> Ignorés&#xa0;: </translation>
    </message>
    <message>
        <source>The file is not a settings backup, or it is damaged (%1): nothing was restored.</source>
        <translation>Le fichier n&apos;est pas une sauvegarde de réglages, ou il est endommagé (%1)&#xa0;: rien n&apos;a été restauré.</translation>
    </message>
    <message>
        <source>“%1” is larger than any settings backup (over 1 MiB): nothing was restored.</source>
        <translation>«&#xa0;%1&#xa0;» est plus gros que toute sauvegarde de réglages (plus de 1 Mio)&#xa0;: rien n&apos;a été restauré.</translation>
    </message>
    <message numerus="yes">
        <source>%n setting(s) restored.</source>
        <translation>
            <numerusform>%n réglage restauré.</numerusform>
            <numerusform>%n réglages restaurés.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nubo::ShotSettingsPage</name>
    <message>
        <source>Backup</source>
        <translation>Sauvegarde</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>Éditeur</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Sortie</translation>
    </message>
    <message>
        <source>Permissions</source>
        <translation>Autorisations</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Enregistrement</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Raccourcis</translation>
    </message>
    <message>
        <source>Uploads</source>
        <translation>Envois</translation>
    </message>
</context>
<context>
    <name>nubo::ShotSettingsWindow</name>
    <message>
        <source>Nubo Shot Settings</source>
        <translation>Réglages de Nubo Shot</translation>
    </message>
</context>
<context>
    <name>nubo::ShotShare</name>
    <message>
        <source>The shot could not be prepared for sharing.</source>
        <translation>La capture n&apos;a pas pu être préparée pour le partage.</translation>
    </message>
    <message>
        <source>No application could be offered to open the shot.</source>
        <translation>Aucune application n&apos;a pu être proposée pour ouvrir la capture.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotShortcutField</name>
    <message>
        <source>Click, then press the keys</source>
        <translation>Cliquer, puis appuyer sur les touches</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Désactivé</translation>
    </message>
    <message>
        <source>No shortcut for this</source>
        <translation>Aucun raccourci pour ceci</translation>
    </message>
    <message>
        <source>%1 already does %2.</source>
        <translation>%1 sert déjà à «&#xa0;%2&#xa0;».</translation>
    </message>
</context>
<context>
    <name>nubo::ShotStatusMenu</name>
    <message>
        <source>Record Screen</source>
        <translation>Enregistrer l&apos;écran</translation>
    </message>
    <message>
        <source>Record Window</source>
        <translation>Enregistrer une fenêtre</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>Arrêter l&apos;enregistrement</translation>
    </message>
    <message>
        <source>Cancel Recording</source>
        <translation>Annuler l&apos;enregistrement</translation>
    </message>
    <message>
        <source>Open Image in Nubo Shot…</source>
        <translation>Ouvrir une image dans Nubo Shot…</translation>
    </message>
    <message>
        <source>Recent</source>
        <translation>Récents</translation>
    </message>
    <message>
        <source>Recent Uploads…</source>
        <translation>Envois récents…</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Réglages…</translation>
    </message>
    <message>
        <source>Quit Nubo Shot</source>
        <translation>Quitter Nubo Shot</translation>
    </message>
    <message>
        <source>Copied image</source>
        <translation>Image copiée</translation>
    </message>
    <message>
        <source>No recent images</source>
        <translation>Aucune image récente</translation>
    </message>
    <message>
        <source>Clear Recent</source>
        <translation>Effacer les récents</translation>
    </message>
    <message>
        <source>No windows to record</source>
        <translation>Aucune fenêtre à enregistrer</translation>
    </message>
    <message>
        <source>Saving the recording…</source>
        <translation>Sauvegarde de l&apos;enregistrement…</translation>
    </message>
    <message>
        <source>Resume Recording</source>
        <translation>Reprendre l&apos;enregistrement</translation>
    </message>
    <message>
        <source>Pause Recording</source>
        <translation>Mettre l&apos;enregistrement en pause</translation>
    </message>
    <message>
        <source>d MMM, HH:mm</source>
        <translation>d MMM, HH:mm</translation>
    </message>
    <message>
        <source>Delay</source>
        <translation>Délai</translation>
    </message>
    <message>
        <source>No Delay</source>
        <translation>Sans délai</translation>
    </message>
    <message numerus="yes">
        <source>%n second(s)</source>
        <translation>
            <numerusform>%n seconde</numerusform>
            <numerusform>%n secondes</numerusform>
        </translation>
    </message>
    <message>
        <source>Pinned</source>
        <translation>Épinglées</translation>
    </message>
    <message>
        <source>Close All Pins</source>
        <translation>Fermer toutes les épingles</translation>
    </message>
    <message>
        <source>Cancel Delayed Capture (%1 s)</source>
        <translation>Annuler la capture différée (%1 s)</translation>
    </message>
</context>
<context>
    <name>nubo::ShotStyleBar</name>
    <message>
        <source>Style</source>
        <translation>Style</translation>
    </message>
    <message>
        <source>Other Colour…</source>
        <translation>Autre couleur…</translation>
    </message>
    <message>
        <source>Other Colour</source>
        <translation>Autre couleur</translation>
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
        <translation>Choisir l&apos;émoji</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Couleur</translation>
    </message>
    <message>
        <source>Drag the frame or its handles; Return crops</source>
        <translation>Glisser le cadre ou ses poignées&#xa0;; Entrée recadre</translation>
    </message>
    <message>
        <source>Click to copy a colour and use it for drawing</source>
        <translation>Cliquer pour copier une couleur et dessiner avec</translation>
    </message>
    <message>
        <source>Click to select, drag to move; Shift adds to the selection</source>
        <translation>Cliquer pour sélectionner, glisser pour déplacer&#xa0;; Maj ajoute à la sélection</translation>
    </message>
    <message>
        <source>&amp;Width</source>
        <translation>&amp;Largeur</translation>
    </message>
    <message>
        <source>&amp;Size</source>
        <translation>&amp;Taille</translation>
    </message>
    <message>
        <source>&amp;Outline</source>
        <translation>&amp;Contour</translation>
    </message>
    <message>
        <source>&amp;Emoji</source>
        <translation>É&amp;moji</translation>
    </message>
    <message>
        <source>Drag over the words to select them; Ctrl+C copies them</source>
        <translation>Glissez sur les mots pour les choisir&#xa0;; Ctrl+C les copie</translation>
    </message>
</context>
<context>
    <name>nubo::ShotTextLayer</name>
    <message>
        <source>No text found in this shot</source>
        <translation>Aucun texte trouvé dans cette capture</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Code copied</source>
        <translation>Code copié</translation>
    </message>
    <message>
        <source>Open Link</source>
        <translation>Ouvrir le lien</translation>
    </message>
    <message>
        <source>No application opens this link</source>
        <translation>Aucune application n’ouvre ce lien</translation>
    </message>
</context>
<context>
    <name>nubo::ShotTools</name>
    <message>
        <source>Crop</source>
        <translation>Recadrer</translation>
    </message>
    <message>
        <source>Add image</source>
        <translation>Ajouter une image</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Sélection</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Rectangle</translation>
    </message>
    <message>
        <source>Filled rectangle</source>
        <translation>Rectangle plein</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>Ellipse</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Ligne</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>Flèche</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>Blur / Censor</source>
        <translation>Flou / Censure</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Numéro</translation>
    </message>
    <message>
        <source>Draw</source>
        <translation>Dessin</translation>
    </message>
    <message>
        <source>Highlighter</source>
        <translation>Surligneur</translation>
    </message>
    <message>
        <source>Emoji</source>
        <translation>Emoji</translation>
    </message>
    <message>
        <source>Pick color</source>
        <translation>Pipette</translation>
    </message>
    <message>
        <source>Select text</source>
        <translation>Sélection de texte</translation>
    </message>
</context>
<context>
    <name>nubo::ShotUpload</name>
    <message>
        <source>Upload to Filebin</source>
        <translation>Envoyer vers Filebin</translation>
    </message>
    <message>
        <source>Uploading… %1%</source>
        <translation>Envoi…&#xa0;%1&#xa0;%</translation>
    </message>
    <message>
        <source>Uploading…</source>
        <translation>Envoi…</translation>
    </message>
    <message>
        <source>Upload complete · Link copied</source>
        <translation>Envoi terminé · Lien copié</translation>
    </message>
    <message>
        <source>Upload complete · Key copied</source>
        <translation>Envoi terminé · Clé copiée</translation>
    </message>
    <message>
        <source>Upload failed · Retry</source>
        <translation>Échec de l&apos;envoi · Réessayer</translation>
    </message>
    <message>
        <source>Upload uncertain · Retry</source>
        <translation>Envoi incertain · Réessayer</translation>
    </message>
    <message>
        <source>Upload to R2</source>
        <translation>Envoyer vers R2</translation>
    </message>
</context>
<context>
    <name>nubo::ShotUploadHistory</name>
    <message>
        <source>d MMM, HH:mm</source>
        <translation>d MMM, HH:mm</translation>
    </message>
    <message>
        <source>Recent Uploads</source>
        <translation>Envois récents</translation>
    </message>
    <message>
        <source>Delete from Filebin</source>
        <translation>Supprimer de Filebin</translation>
    </message>
    <message>
        <source>Delete “%1” from Filebin?</source>
        <translation>Supprimer «&#xa0;%1&#xa0;» de Filebin&#xa0;?</translation>
    </message>
    <message>
        <source>Its link stops working for everyone.</source>
        <translation>Son lien cessera de fonctionner pour tout le monde.</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Destination</translation>
    </message>
    <message>
        <source>Uploaded</source>
        <translation>Envoyé</translation>
    </message>
    <message>
        <source>Kept until</source>
        <translation>Conservé jusqu&apos;au</translation>
    </message>
    <message>
        <source>Link or key</source>
        <translation>Lien ou clé</translation>
    </message>
    <message>
        <source>Copy Link</source>
        <translation>Copier le lien</translation>
    </message>
    <message>
        <source>Open Link</source>
        <translation>Ouvrir le lien</translation>
    </message>
    <message>
        <source>Copied %1</source>
        <translation>%1 copié</translation>
    </message>
    <message>
        <source>Nothing uploaded yet.</source>
        <translation>Rien n&apos;a encore été envoyé.</translation>
    </message>
    <message>
        <source>Deleted</source>
        <translation>Supprimé</translation>
    </message>
    <message>
        <source>Expired</source>
        <translation>Expiré</translation>
    </message>
    <message>
        <source>Until deleted</source>
        <translation>Jusqu&apos;à suppression</translation>
    </message>
    <message>
        <source>Bucket “%1”</source>
        <translation>Bucket «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>Filebin</source>
        <translation>Filebin</translation>
    </message>
    <message>
        <source>Objects in a bucket are deleted with the bucket&apos;s own tools</source>
        <translation>Les objets d&apos;un bucket se suppriment avec les outils du bucket</translation>
    </message>
    <message>
        <source>Deleting %1…</source>
        <translation>Suppression de&#xa0;%1…</translation>
    </message>
    <message>
        <source>Deleted %1 from Filebin.</source>
        <translation>%1 supprimé de Filebin.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotUploadStatus</name>
    <message>
        <source>The shot could not be read for the upload: %1.</source>
        <translation>La capture n&apos;a pas pu être lue pour l&apos;envoi&#xa0;:&#xa0;%1.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotZoomControls</name>
    <message>
        <source>Zoom Out (Ctrl+-)</source>
        <translation>Zoom arrière (Ctrl+-)</translation>
    </message>
    <message>
        <source>Actual Size (Ctrl+0)</source>
        <translation>Taille réelle (Ctrl+0)</translation>
    </message>
    <message>
        <source>Zoom In (Ctrl++)</source>
        <translation>Zoom avant (Ctrl++)</translation>
    </message>
    <message>
        <source>Fit in Window (Ctrl+9)</source>
        <translation>Ajuster à la fenêtre (Ctrl+9)</translation>
    </message>
</context>
<context>
    <name>nubo::TextRecognition</name>
    <message>
        <source>Text in “%1” cannot be recognised: its data is not installed (install the package tesseract-ocr-%2).</source>
        <translation>Le texte en «&#xa0;%1&#xa0;» ne peut pas être reconnu&#xa0;: ses données ne sont pas installées (installez le paquet tesseract-ocr-%2).</translation>
    </message>
    <message>
        <source>The text recognition engine could not start with “%1”.</source>
        <translation>Le moteur de reconnaissance de texte n&apos;a pas pu démarrer avec «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>The text could not be recognised.</source>
        <translation>Le texte n&apos;a pas pu être reconnu.</translation>
    </message>
</context>
<context>
    <name>nubo::TrayApplication</name>
    <message>
        <source>Open Image in Nubo Shot</source>
        <translation>Ouvrir une image dans Nubo Shot</translation>
    </message>
    <message>
        <source>Images (*.png *.jpg *.jpeg *.webp *.bmp *.gif)</source>
        <translation>Images (*.png *.jpg *.jpeg *.webp *.bmp *.gif)</translation>
    </message>
    <message>
        <source>Could Not Open Image</source>
        <translation>Impossible d&apos;ouvrir l&apos;image</translation>
    </message>
    <message>
        <source>Stop the recording and quit?</source>
        <translation>Arrêter l&apos;enregistrement et quitter&#xa0;?</translation>
    </message>
    <message>
        <source>The recording is saved before Nubo Shot quits.</source>
        <translation>L&apos;enregistrement est sauvegardé avant que Nubo Shot ne quitte.</translation>
    </message>
    <message>
        <source>Stop and Quit</source>
        <translation>Arrêter et quitter</translation>
    </message>
    <message>
        <source>Nubo Shot — saving the recording</source>
        <translation>Nubo Shot — sauvegarde de l&apos;enregistrement</translation>
    </message>
    <message>
        <source>Open Shortcuts Settings</source>
        <translation>Ouvrir les réglages des raccourcis</translation>
    </message>
    <message>
        <source>Recovered an interrupted recording</source>
        <translation>Un enregistrement interrompu a été récupéré</translation>
    </message>
    <message>
        <source>An interrupted recording could not be kept</source>
        <translation>Un enregistrement interrompu n&apos;a pas pu être conservé</translation>
    </message>
    <message numerus="yes">
        <source>%n shortcut(s) do not work</source>
        <translation>
            <numerusform>%n raccourci ne fonctionne pas</numerusform>
            <numerusform>%n raccourcis ne fonctionnent pas</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 stopped before its first picture was saved; nothing of it could be kept.</source>
        <translation>%1 s&apos;est arrêté avant que sa première image soit enregistrée&#xa0;; rien n&apos;a pu en être conservé.</translation>
    </message>
    <message numerus="yes">
        <source>%n upload(s) were interrupted</source>
        <translation>
            <numerusform>%n envoi a été interrompu</numerusform>
            <numerusform>%n envois ont été interrompus</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 may not have arrived. Upload it again from its editor, or see Recent Uploads.</source>
        <translation>%1 n&apos;est peut-être pas arrivé. Envoyez-le de nouveau depuis son éditeur, ou consultez Envois récents.</translation>
    </message>
    <message>
        <source>Nubo Shot — paused at %1</source>
        <translation>Nubo Shot — en pause à&#xa0;%1</translation>
    </message>
    <message>
        <source>Nubo Shot — recording %1</source>
        <translation>Nubo Shot — enregistrement&#xa0;%1</translation>
    </message>
    <message numerus="yes">
        <source>Nubo Shot — capturing in %n second(s)</source>
        <translation>
            <numerusform>Nubo Shot — capture dans %n seconde</numerusform>
            <numerusform>Nubo Shot — capture dans %n secondes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nubo::Uploader</name>
    <message>
        <source>The S3 destination is not set up: give its endpoint, region, bucket and access key id in the Uploads settings.</source>
        <translation>La destination S3 n&apos;est pas configurée&#xa0;: indiquez son point de terminaison, sa région, son bucket et l&apos;ID de clé d&apos;accès dans les réglages des envois.</translation>
    </message>
    <message>
        <source>The keyring holds no S3 secret for the access key id “%1”: enter it in the Uploads settings.</source>
        <translation>Le trousseau ne contient aucun secret S3 pour l&apos;ID de clé d&apos;accès «&#xa0;%1&#xa0;»&#xa0;: saisissez-le dans les réglages des envois.</translation>
    </message>
    <message>
        <source>The Filebin server “%1” is not an http or https address.</source>
        <translation>Le serveur Filebin «&#xa0;%1&#xa0;» n&apos;est pas une adresse http ou https.</translation>
    </message>
    <message>
        <source>The upload was cancelled.</source>
        <translation>L&apos;envoi a été annulé.</translation>
    </message>
    <message>
        <source>The upload to %1 failed: %2.</source>
        <translation>L&apos;envoi vers&#xa0;%1 a échoué&#xa0;:&#xa0;%2.</translation>
    </message>
    <message>
        <source>Only Filebin uploads can be deleted from here.</source>
        <translation>Seuls les envois vers Filebin peuvent être supprimés d&apos;ici.</translation>
    </message>
    <message>
        <source>Filebin could not be reached: %1.</source>
        <translation>Filebin est injoignable&#xa0;:&#xa0;%1.</translation>
    </message>
</context>
<context>
    <name>nubo::UploadsSettingsPage</name>
    <message>
        <source>Destination</source>
        <translation>Destination</translation>
    </message>
    <message>
        <source>Automatic: the bucket when it is set up, else Filebin</source>
        <translation>Automatique&#xa0;: le bucket s&apos;il est configuré, sinon Filebin</translation>
    </message>
    <message>
        <source>S3-compatible bucket (R2)</source>
        <translation>Bucket compatible S3 (R2)</translation>
    </message>
    <message>
        <source>Filebin</source>
        <translation>Filebin</translation>
    </message>
    <message>
        <source>Upload to:</source>
        <translation>Envoyer vers&#xa0;:</translation>
    </message>
    <message>
        <source>A new bin for every upload</source>
        <translation>Un nouveau bin à chaque envoi</translation>
    </message>
    <message>
        <source>S3-compatible bucket</source>
        <translation>Bucket compatible S3</translation>
    </message>
    <message>
        <source>Key prefix:</source>
        <translation>Préfixe de clé&#xa0;:</translation>
    </message>
    <message>
        <source>Optional, such as screenshots/</source>
        <translation>Facultatif, par exemple screenshots/</translation>
    </message>
    <message>
        <source>Public URL:</source>
        <translation>URL publique&#xa0;:</translation>
    </message>
    <message>
        <source>Optional, such as https://shots.example.com</source>
        <translation>Facultatif, par exemple https://shots.example.com</translation>
    </message>
    <message>
        <source>Bucket in the host name (virtual-hosted style)</source>
        <translation>Bucket dans le nom d&apos;hôte (virtual-hosted style)</translation>
    </message>
    <message>
        <source>Access key ID:</source>
        <translation>ID de clé d&apos;accès&#xa0;:</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>Oublier</translation>
    </message>
    <message>
        <source>Secret access key:</source>
        <translation>Clé d&apos;accès secrète&#xa0;:</translation>
    </message>
    <message>
        <source>Try it</source>
        <translation>Essayer</translation>
    </message>
    <message>
        <source>Test Upload</source>
        <translation>Envoi d&apos;essai</translation>
    </message>
    <message>
        <source>Uploads a small picture to the destination above</source>
        <translation>Envoie une petite image vers la destination ci-dessus</translation>
    </message>
    <message>
        <source>The settings could not be kept: %1</source>
        <translation>Les réglages n&apos;ont pas pu être conservés&#xa0;:&#xa0;%1</translation>
    </message>
    <message>
        <source>Enter the access key ID first.</source>
        <translation>Saisissez d&apos;abord l&apos;ID de clé d&apos;accès.</translation>
    </message>
    <message>
        <source>Asking the keyring…</source>
        <translation>Interrogation du trousseau…</translation>
    </message>
    <message>
        <source>Set · type to replace</source>
        <translation>Défini · saisir pour remplacer</translation>
    </message>
    <message>
        <source>Kept in the desktop&apos;s keyring.</source>
        <translation>Conservée dans le trousseau du bureau.</translation>
    </message>
    <message>
        <source>Not set</source>
        <translation>Non définie</translation>
    </message>
    <message>
        <source>Not set: uploads to the bucket need it.</source>
        <translation>Non définie&#xa0;: les envois vers le bucket en ont besoin.</translation>
    </message>
    <message>
        <source>Not available</source>
        <translation>Indisponible</translation>
    </message>
    <message>
        <source>Storing in the keyring…</source>
        <translation>Enregistrement dans le trousseau…</translation>
    </message>
    <message>
        <source>Uploading to the bucket…</source>
        <translation>Envoi vers le bucket…</translation>
    </message>
    <message>
        <source>Uploading to Filebin…</source>
        <translation>Envoi vers Filebin…</translation>
    </message>
    <message>
        <source>Uploaded: %1</source>
        <translation>Envoyé&#xa0;:&#xa0;%1</translation>
    </message>
    <message>
        <source>Links are copied after upload. Without a public URL, object keys are copied.</source>
        <translation>Les liens sont copiés après l&apos;envoi. Sans URL publique, ce sont les clés d&apos;objet qui sont copiées.</translation>
    </message>
    <message>
        <source>Filebin keeps files for about a week; anyone with the link can see them.</source>
        <translation>Filebin conserve les fichiers environ une semaine&#xa0;; toute personne ayant le lien peut les voir.</translation>
    </message>
    <message>
        <source>Uploaded as %1 (no public URL, so this is the object key).</source>
        <translation>Envoyé sous&#xa0;%1 (pas d&apos;URL publique, c&apos;est donc la clé d&apos;objet).</translation>
    </message>
    <message>
        <source>Server:</source>
        <translation>Serveur&#xa0;:</translation>
    </message>
    <message>
        <source>Bin:</source>
        <translation>Bin&#xa0;:</translation>
    </message>
    <message>
        <source>Endpoint:</source>
        <translation>Point de terminaison&#xa0;:</translation>
    </message>
    <message>
        <source>Region:</source>
        <translation>Région&#xa0;:</translation>
    </message>
    <message>
        <source>Bucket:</source>
        <translation>Bucket&#xa0;:</translation>
    </message>
    <message>
        <source>Failed.</source>
        <translation>Échec.</translation>
    </message>
</context>
<context>
    <name>nubo::XcbConnection</name>
    <message>
        <source>The X display stores pixels at a depth of %1 bits (%2 bits a pixel), which Nubo Shot cannot read; it reads depths 15, 16, 24, 30 and 32.</source>
        <translation>L&apos;affichage X stocke les pixels avec une profondeur de&#xa0;%1 bits (%2 bits par pixel), que Nubo Shot ne sait pas lire&#xa0;; il lit les profondeurs 15, 16, 24, 30 et 32.</translation>
    </message>
    <message>
        <source>There is not enough memory to read the screen.</source>
        <translation>Mémoire insuffisante pour lire l&apos;écran.</translation>
    </message>
    <message>
        <source>The X server sent %1 bytes of pixels where %2 were asked for.</source>
        <translation>Le serveur X a envoyé&#xa0;%1 octets de pixels au lieu des&#xa0;%2 demandés.</translation>
    </message>
    <message>
        <source>The screen could not be read: %1.</source>
        <translation>Impossible de lire l&apos;écran&#xa0;:&#xa0;%1.</translation>
    </message>
</context>
<context>
    <name>nubo::XcbGlobalShortcuts</name>
    <message>
        <source>The shortcut %1 is not on this keyboard.</source>
        <translation>Le raccourci&#xa0;%1 n&apos;existe pas sur ce clavier.</translation>
    </message>
    <message>
        <source>The shortcut %1 is used by another program.</source>
        <translation>Le raccourci&#xa0;%1 est utilisé par un autre programme.</translation>
    </message>
</context>
</TS>
