<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES">
<context>
    <name>nubo::BackupSettingsPage</name>
    <message>
        <source>Settings file</source>
        <translation>Archivo de ajustes</translation>
    </message>
    <message>
        <source>Back Up Settings…</source>
        <translation>Guardar copia de los ajustes…</translation>
    </message>
    <message>
        <source>Restore Settings…</source>
        <translation>Restaurar los ajustes…</translation>
    </message>
    <message>
        <source>Back Up Settings</source>
        <translation>Guardar copia de los ajustes</translation>
    </message>
    <message>
        <source>Settings backups (*.json)</source>
        <translation>Copias de los ajustes (*.json)</translation>
    </message>
    <message>
        <source>Restore Settings</source>
        <translation>Restaurar los ajustes</translation>
    </message>
    <message>
        <source>Settings backups (*.json);;All files (*)</source>
        <translation>Copias de los ajustes (*.json);;Todos los archivos (*)</translation>
    </message>
    <message>
        <source>Settings backed up to “%1”.</source>
        <translation>Ajustes guardados en «%1».</translation>
    </message>
    <message>
        <source>Every preference goes into one file you can keep or take to another computer. Passwords and keys never do: they stay in the desktop&apos;s keyring.</source>
        <translation>Todos los ajustes van a un único archivo que puede guardar o llevar a otro equipo. Las contraseñas y las claves nunca: se quedan en el llavero del escritorio.</translation>
    </message>
</context>
<context>
    <name>nubo::CameraStreamSource</name>
    <message>
        <source>The camera “%1” is not connected.</source>
        <translation>La cámara «%1» no está conectada.</translation>
    </message>
    <message>
        <source>The camera “%1” cannot be opened: %2.</source>
        <translation>No se puede abrir la cámara «%1»: %2.</translation>
    </message>
    <message>
        <source>The camera “%1” gives no pictures: %2.</source>
        <translation>La cámara «%1» no da imágenes: %2.</translation>
    </message>
    <message>
        <source>The camera “%1” gives no pictures that can be read.</source>
        <translation>La cámara «%1» no da imágenes legibles.</translation>
    </message>
    <message>
        <source>The camera&apos;s pictures (%1) cannot be decoded: %2.</source>
        <translation>No se pueden descodificar las imágenes de la cámara (%1): %2.</translation>
    </message>
    <message>
        <source>The camera stopped: %1.</source>
        <translation>La cámara se detuvo: %1.</translation>
    </message>
</context>
<context>
    <name>nubo::CapturePlatformLoader</name>
    <message>
        <source>No X display to capture: DISPLAY is not set.</source>
        <translation>No hay ninguna pantalla X que capturar: DISPLAY no está definida.</translation>
    </message>
    <message>
        <source>The X display “%1” (DISPLAY) cannot be reached.</source>
        <translation>No se puede acceder a la pantalla X «%1» (DISPLAY).</translation>
    </message>
    <message>
        <source>This Wayland desktop has no screen-cast portal to capture through: install the desktop&apos;s portal backend (xdg-desktop-portal-gnome, -kde or -wlr) and log in again.</source>
        <translation>Este escritorio Wayland no tiene un portal de transmisión de pantalla con el que capturar: instale el motor de portal del escritorio (xdg-desktop-portal-gnome, -kde o -wlr) y vuelva a iniciar sesión.</translation>
    </message>
    <message>
        <source>There is no capture backend “%1” (%2); this build has: %3.</source>
        <translation>No existe el motor de captura «%1» (%2); esta compilación tiene: %3.</translation>
    </message>
    <message>
        <source>No display to capture: neither DISPLAY nor WAYLAND_DISPLAY is set.</source>
        <translation>No hay ninguna pantalla que capturar: no están definidas ni DISPLAY ni WAYLAND_DISPLAY.</translation>
    </message>
</context>
<context>
    <name>nubo::CaptureTypes</name>
    <message>
        <source>Screen Recording permission is required.</source>
        <translation>Se necesita el permiso de grabación de pantalla.</translation>
    </message>
    <message>
        <source>Capture was cancelled.</source>
        <translation>Se canceló la captura.</translation>
    </message>
    <message>
        <source>No screen content is available.</source>
        <translation>No hay contenido de pantalla disponible.</translation>
    </message>
</context>
<context>
    <name>nubo::EditorSettingsPage</name>
    <message>
        <source>Tools</source>
        <translation>Herramientas</translation>
    </message>
    <message>
        <source>Return to Select after drawing</source>
        <translation>Volver a Seleccionar después de dibujar</translation>
    </message>
    <message>
        <source>Colour and size of new marks</source>
        <translation>Color y tamaño de las marcas nuevas</translation>
    </message>
    <message>
        <source>Colour…</source>
        <translation>Color…</translation>
    </message>
    <message>
        <source> pt</source>
        <translation> pt</translation>
    </message>
    <message>
        <source>Blur / Censor</source>
        <translation>Desenfocar / Censurar</translation>
    </message>
    <message>
        <source>%1 Colour</source>
        <translation>Color: %1</translation>
    </message>
    <message>
        <source>Draw and Number stay active, for one stroke or number after another.</source>
        <translation>Dibujar y Número siguen activos, para un trazo o un número tras otro.</translation>
    </message>
    <message>
        <source>The size of the blocks the hidden area is shown in: larger blocks show less.</source>
        <translation>El tamaño de los bloques con que se muestra la zona oculta: bloques más grandes muestran menos.</translation>
    </message>
    <message>
        <source>Strength:</source>
        <translation>Intensidad:</translation>
    </message>
    <message>
        <source>Text in shots</source>
        <translation>Texto en capturas</translation>
    </message>
    <message>
        <source>Languages:</source>
        <translation>Idiomas:</translation>
    </message>
    <message>
        <source>Copy Text and Capture Text read these. With none ticked, the desktop&apos;s language and English. More come with the packages tesseract-ocr-LANGUAGE.</source>
        <translation>«Copiar texto» y «Capturar texto» leen estos idiomas. Si no hay ninguno marcado, el idioma del escritorio y el inglés. Hay más en los paquetes tesseract-ocr-IDIOMA.</translation>
    </message>
</context>
<context>
    <name>nubo::EmojiCatalog</name>
    <message>
        <source>Everyday</source>
        <translation>Habituales</translation>
    </message>
    <message>
        <source>Only a few emoji are offered: %1 cannot be read (%2). Install the package unicode-data for all of them.</source>
        <translation>Solo se ofrecen unos pocos emoji: no se puede leer %1 (%2). Instale el paquete unicode-data para tenerlos todos.</translation>
    </message>
    <message>
        <source>Only a few emoji are offered: %1 lists none. Reinstall the package unicode-data.</source>
        <translation>Solo se ofrecen unos pocos emoji: %1 no enumera ninguno. Reinstale el paquete unicode-data.</translation>
    </message>
</context>
<context>
    <name>nubo::GeneralSettingsPage</name>
    <message>
        <source>Start-up</source>
        <translation>Inicio</translation>
    </message>
    <message>
        <source>Start Nubo Shot when I log in</source>
        <translation>Iniciar Nubo Shot al iniciar sesión</translation>
    </message>
    <message>
        <source>Shots</source>
        <translation>Capturas</translation>
    </message>
    <message>
        <source>Show Recent in menu</source>
        <translation>Mostrar Recientes en el menú</translation>
    </message>
    <message>
        <source>Include the pointer</source>
        <translation>Incluir el puntero</translation>
    </message>
    <message>
        <source>Adjust the area before capturing</source>
        <translation>Ajustar el área antes de capturar</translation>
    </message>
    <message>
        <source>Also copy raw shot</source>
        <translation>Copiar también la captura sin editar</translation>
    </message>
    <message>
        <source>On Wayland a program sees the clipboard only while one of its windows has the keyboard: images copied in other applications join Recent the next time you use Nubo Shot.</source>
        <translation>En Wayland un programa solo ve el portapapeles mientras una de sus ventanas tiene el teclado: las imágenes copiadas en otras aplicaciones se suman a Recientes la próxima vez que use Nubo Shot.</translation>
    </message>
    <message>
        <source>A dragged area keeps its handles: move it with the arrow keys, resize it with Alt and the arrow keys, and press Return or double-click it to capture.</source>
        <translation>Un área arrastrada conserva sus tiradores: muévala con las flechas, cambie su tamaño con Alt y las flechas, y pulse Intro o haga doble clic para capturarla.</translation>
    </message>
    <message>
        <source>Puts every capture on the clipboard at once, before anything is drawn on it.</source>
        <translation>Pone cada captura en el portapapeles de inmediato, antes de dibujar nada en ella.</translation>
    </message>
</context>
<context>
    <name>nubo::ImageWriter</name>
    <message>
        <source>Could not write “%1”: %2.</source>
        <translation>No se pudo escribir «%1»: %2.</translation>
    </message>
</context>
<context>
    <name>nubo::LevelMeter</name>
    <message>
        <source>Microphone level</source>
        <translation>Nivel del micrófono</translation>
    </message>
</context>
<context>
    <name>nubo::OutputSettingsPage</name>
    <message>
        <source>Quick save</source>
        <translation>Guardado rápido</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Elegir…</translation>
    </message>
    <message>
        <source>Use Downloads</source>
        <translation>Usar Descargas</translation>
    </message>
    <message>
        <source>Quick-Save Folder</source>
        <translation>Carpeta de guardado rápido</translation>
    </message>
    <message>
        <source>File names:</source>
        <translation>Nombres de archivo:</translation>
    </message>
    <message>
        <source>Close the editor after</source>
        <translation>Cerrar el editor después de</translation>
    </message>
    <message>
        <source>Copying</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Saving</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>Dragging out</source>
        <translation>Arrastrar fuera</translation>
    </message>
    <message>
        <source>Hold Alt, or pin the editor, to keep it open once.</source>
        <translation>Mantenga pulsado Alt, o fije el editor, para dejarlo abierto una vez.</translation>
    </message>
    <message>
        <source>No folder chosen: shots go to Downloads.</source>
        <translation>No hay carpeta elegida: las capturas van a Descargas.</translation>
    </message>
    <message>
        <source>A second shot in the same second gets “ (2)”, and so on: no file is ever replaced.</source>
        <translation>Una segunda captura en el mismo segundo recibe « (2)», y así sucesivamente: nunca se reemplaza ningún archivo.</translation>
    </message>
    <message>
        <source>“%1” is missing or cannot be written to: shots go to Downloads until it is back.</source>
        <translation>«%1» no existe o no se puede escribir en ella: las capturas van a Descargas hasta que vuelva.</translation>
    </message>
    <message>
        <source>Folder:</source>
        <translation>Carpeta:</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>Formato:</translation>
    </message>
</context>
<context>
    <name>nubo::PermissionsSettingsPage</name>
    <message>
        <source>What Nubo Shot may use</source>
        <translation>Lo que Nubo Shot puede usar</translation>
    </message>
    <message>
        <source>Screen capture</source>
        <translation>Captura de pantalla</translation>
    </message>
    <message>
        <source>Forget Grant</source>
        <translation>Olvidar el permiso</translation>
    </message>
    <message>
        <source>The desktop asks again at the next capture</source>
        <translation>El escritorio volverá a preguntar en la próxima captura</translation>
    </message>
    <message>
        <source>Global shortcuts</source>
        <translation>Atajos globales</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>Micrófono</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Cámara</translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation>Notificaciones</translation>
    </message>
    <message>
        <source>Keyring</source>
        <translation>Llavero</translation>
    </message>
    <message>
        <source>Check Again</source>
        <translation>Volver a comprobar</translation>
    </message>
    <message>
        <source>Allowed: this X11 desktop lets programs read the screen.</source>
        <translation>Permitido: este escritorio X11 deja que los programas lean la pantalla.</translation>
    </message>
    <message>
        <source>Available through the sound server.</source>
        <translation>Disponible a través del servidor de sonido.</translation>
    </message>
    <message>
        <source>Available: %1.</source>
        <translation>Disponible: %1.</translation>
    </message>
    <message>
        <source>Shown by the desktop&apos;s notification service.</source>
        <translation>Las muestra el servicio de notificaciones del escritorio.</translation>
    </message>
    <message>
        <source>Granted through the desktop&apos;s screen-sharing dialog; captures do not ask again.</source>
        <translation>Concedido mediante el diálogo de compartir pantalla del escritorio; las capturas no vuelven a preguntar.</translation>
    </message>
    <message>
        <source>Not yet granted: the desktop shows its screen-sharing dialog at the next capture. Choose every screen and allow it to be remembered.</source>
        <translation>Aún no concedido: el escritorio mostrará su diálogo de compartir pantalla en la próxima captura. Elija todas las pantallas y permita que se recuerde.</translation>
    </message>
    <message>
        <source>Bound: the keys on the Shortcuts page work wherever the focus is.</source>
        <translation>Asignados: las teclas de la página Atajos funcionan esté donde esté el foco.</translation>
    </message>
    <message>
        <source>This desktop gives programs no global keys: bind the commands of the Shortcuts page in the desktop&apos;s keyboard settings.</source>
        <translation>Este escritorio no da teclas globales a los programas: asigne las órdenes de la página Atajos en los ajustes de teclado del escritorio.</translation>
    </message>
    <message>
        <source>No camera can be opened: connect one, and make sure your user is in the “video” group.</source>
        <translation>No se puede abrir ninguna cámara: conecte una y asegúrese de que su usuario está en el grupo «video».</translation>
    </message>
    <message numerus="yes">
        <source>Available: %1 and %n more.</source>
        <translation>
            <numerusform>Disponible: %1 y %n más.</numerusform>
            <numerusform>Disponible: %1 y %n más.</numerusform>
        </translation>
    </message>
    <message>
        <source>No notification service: messages appear as the tray icon&apos;s bubbles instead.</source>
        <translation>No hay servicio de notificaciones: los mensajes aparecen en su lugar como globos del icono de la bandeja.</translation>
    </message>
    <message>
        <source>The desktop&apos;s keyring (Secret Service) keeps upload secrets.</source>
        <translation>El llavero del escritorio (Secret Service) guarda los secretos de subida.</translation>
    </message>
    <message>
        <source>No keyring: install gnome-keyring (or a password manager offering the Secret Service) to store upload secrets.</source>
        <translation>No hay llavero: instale gnome-keyring (o un gestor de contraseñas que ofrezca el Secret Service) para guardar los secretos de subida.</translation>
    </message>
</context>
<context>
    <name>nubo::PortalRequest</name>
    <message>
        <source>There is no session bus to reach the desktop portal.</source>
        <translation>No hay bus de sesión para acceder al portal del escritorio.</translation>
    </message>
    <message>
        <source>The desktop portal did not answer %1 within %2 s.</source>
        <translation>El portal del escritorio no respondió a %1 en %2 s.</translation>
    </message>
</context>
<context>
    <name>nubo::PortalScreenCast</name>
    <message>
        <source>The desktop portal offers no screen casting (org.freedesktop.portal.ScreenCast).</source>
        <translation>El portal del escritorio no ofrece transmisión de pantalla (org.freedesktop.portal.ScreenCast).</translation>
    </message>
    <message>
        <source>The desktop portal made no screen-cast session.</source>
        <translation>El portal del escritorio no creó ninguna sesión de transmisión.</translation>
    </message>
    <message>
        <source>The desktop portal gave no PipeWire connection.</source>
        <translation>El portal del escritorio no dio ninguna conexión PipeWire.</translation>
    </message>
</context>
<context>
    <name>nubo::PulseAudioCapture</name>
    <message>
        <source>The audio server cannot be reached: no event loop.</source>
        <translation>No se puede acceder al servidor de audio: no hay bucle de eventos.</translation>
    </message>
    <message>
        <source>No audio server answers.</source>
        <translation>Ningún servidor de audio responde.</translation>
    </message>
    <message>
        <source>No audio server answers: %1.</source>
        <translation>Ningún servidor de audio responde: %1.</translation>
    </message>
    <message>
        <source>No audio server answers: it did not reply in time.</source>
        <translation>Ningún servidor de audio responde: no contestó a tiempo.</translation>
    </message>
    <message>
        <source>The audio server did not answer: %1.</source>
        <translation>El servidor de audio no respondió: %1.</translation>
    </message>
    <message>
        <source>No sound server answers: install PipeWire (pipewire-pulse) or PulseAudio and log in again.</source>
        <translation>Ningún servidor de sonido responde: instale PipeWire (pipewire-pulse) o PulseAudio y vuelva a iniciar sesión.</translation>
    </message>
    <message>
        <source>The audio source “%1” cannot be recorded: %2.</source>
        <translation>No se puede grabar la fuente de audio «%1»: %2.</translation>
    </message>
    <message>
        <source>The audio server has no sound output to record.</source>
        <translation>El servidor de audio no tiene ninguna salida de sonido que grabar.</translation>
    </message>
    <message>
        <source>The audio server has no microphone to record.</source>
        <translation>El servidor de audio no tiene ningún micrófono que grabar.</translation>
    </message>
</context>
<context>
    <name>nubo::RecordingSession</name>
    <message>
        <source>The folder “%1” cannot be created.</source>
        <translation>No se puede crear la carpeta «%1».</translation>
    </message>
</context>
<context>
    <name>nubo::RecordingSettingsPage</name>
    <message>
        <source>Video</source>
        <translation>Vídeo</translation>
    </message>
    <message>
        <source>Frame rate:</source>
        <translation>Fotogramas por segundo:</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Sonido</translation>
    </message>
    <message>
        <source>In the recording</source>
        <translation>En la grabación</translation>
    </message>
    <message>
        <source>Show the pointer</source>
        <translation>Mostrar el puntero</translation>
    </message>
    <message>
        <source>Highlight clicks</source>
        <translation>Resaltar los clics</translation>
    </message>
    <message>
        <source>Camera bubble</source>
        <translation>Burbuja de cámara</translation>
    </message>
    <message>
        <source>Count down 3 seconds before recording</source>
        <translation>Cuenta atrás de 3 segundos antes de grabar</translation>
    </message>
    <message>
        <source>Saving</source>
        <translation>Guardado</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Elegir…</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Predeterminada</translation>
    </message>
    <message>
        <source>Recordings folder:</source>
        <translation>Carpeta de grabaciones:</translation>
    </message>
    <message>
        <source>Recordings Folder</source>
        <translation>Carpeta de grabaciones</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Atajo</translation>
    </message>
    <message>
        <source>Starts a recording, and stops the one under way.</source>
        <translation>Inicia una grabación y detiene la que está en curso.</translation>
    </message>
    <message>
        <source> (default)</source>
        <translation> (predeterminada)</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>Formato:</translation>
    </message>
    <message>
        <source>Resolution:</source>
        <translation>Resolución:</translation>
    </message>
    <message>
        <source>Microphone:</source>
        <translation>Micrófono:</translation>
    </message>
    <message>
        <source>Camera:</source>
        <translation>Cámara:</translation>
    </message>
</context>
<context>
    <name>nubo::RecordingTypes</name>
    <message>
        <source>The media encoder could not accept recording data.</source>
        <translation>El codificador no pudo aceptar los datos de la grabación.</translation>
    </message>
    <message>
        <source>The recording could not be saved. </source>
        <translation>No se pudo guardar la grabación. </translation>
    </message>
    <message>
        <source>Microphone recording requires a running audio server.</source>
        <translation>Para grabar el micrófono hace falta un servidor de audio en marcha.</translation>
    </message>
    <message>
        <source>Click highlighting requires the X Input extension.</source>
        <translation>Resaltar los clics requiere la extensión X Input.</translation>
    </message>
    <message>
        <source>The selected recording codec is unavailable.</source>
        <translation>El códec de grabación elegido no está disponible.</translation>
    </message>
    <message>
        <source>The recording cannot perform this action right now.</source>
        <translation>La grabación no puede hacer esto ahora mismo.</translation>
    </message>
    <message>
        <source>No video frames were recorded.</source>
        <translation>No se grabó ningún fotograma de vídeo.</translation>
    </message>
    <message>
        <source>Recording audio could not be processed.</source>
        <translation>No se pudo procesar el audio de la grabación.</translation>
    </message>
</context>
<context>
    <name>nubo::S3Signing</name>
    <message>
        <source>The S3 endpoint “%1” is not an http or https address.</source>
        <translation>El punto de conexión S3 «%1» no es una dirección http ni https.</translation>
    </message>
</context>
<context>
    <name>nubo::ShortcutsSettingsPage</name>
    <message>
        <source>Capture and record from anywhere</source>
        <translation>Capturar y grabar desde cualquier lugar</translation>
    </message>
    <message>
        <source>Reset to Defaults</source>
        <translation>Restablecer valores predeterminados</translation>
    </message>
    <message>
        <source>Bind keys in the desktop&apos;s settings</source>
        <translation>Asignar teclas en los ajustes del escritorio</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Copy the command</source>
        <translation>Copiar la orden</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Copiada</translation>
    </message>
    <message>
        <source>This desktop offers no global shortcuts: they are kept for when it does.</source>
        <translation>Este escritorio no ofrece atajos globales: se conservan para cuando los ofrezca.</translation>
    </message>
    <message>
        <source>Add a custom shortcut in the desktop&apos;s keyboard settings (GNOME: Settings → Keyboard → Custom Shortcuts; KDE: System Settings → Shortcuts; sway: a bindsym line) that runs the command.</source>
        <translation>Añada un atajo personalizado en los ajustes de teclado del escritorio (GNOME: Configuración → Teclado → Atajos personalizados; KDE: Preferencias del sistema → Accesos rápidos; sway: una línea bindsym) que ejecute la orden.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotApplications</name>
    <message>
        <source>%1 could not be started: %2.</source>
        <translation>No se pudo iniciar %1: %2.</translation>
    </message>
    <message>
        <source>%1 cannot be started: its desktop entry %2 has an Exec line that cannot be read.</source>
        <translation>No se puede iniciar %1: su entrada de escritorio %2 tiene una línea Exec ilegible.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotBottomBar</name>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Copy (Ctrl+C) · Hold Alt to keep open</source>
        <translation>Copiar (Ctrl+C) · Mantenga Alt para dejarlo abierto</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>Save to the quick-save folder (Ctrl+S) · Hold Alt to keep open</source>
        <translation>Guardar en la carpeta de guardado rápido (Ctrl+S) · Mantenga Alt para dejarlo abierto</translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>Guardar como…</translation>
    </message>
    <message>
        <source>Save As (Ctrl+Shift+S)</source>
        <translation>Guardar como (Ctrl+Mayús+S)</translation>
    </message>
    <message>
        <source>Open With</source>
        <translation>Abrir con</translation>
    </message>
    <message>
        <source>Open the shot in another application</source>
        <translation>Abrir la captura en otra aplicación</translation>
    </message>
    <message>
        <source>Upload to R2</source>
        <translation>Subir a R2</translation>
    </message>
    <message>
        <source>Upload to Filebin</source>
        <translation>Subir a Filebin</translation>
    </message>
    <message>
        <source>Cancel upload</source>
        <translation>Cancelar la subida</translation>
    </message>
    <message>
        <source>Keep this editor open after copying, saving or dragging</source>
        <translation>Dejar este editor abierto después de copiar, guardar o arrastrar</translation>
    </message>
    <message>
        <source>%1 (Default)</source>
        <translation>%1 (predeterminada)</translation>
    </message>
    <message>
        <source>No application opens PNG images</source>
        <translation>Ninguna aplicación abre imágenes PNG</translation>
    </message>
    <message>
        <source>Other Application…</source>
        <translation>Otra aplicación…</translation>
    </message>
    <message>
        <source>Set up a bucket on the Uploads page of the settings first</source>
        <translation>Configure primero un bucket en la página Subidas de los ajustes</translation>
    </message>
    <message>
        <source>Filebin</source>
        <translation>Filebin</translation>
    </message>
    <message>
        <source>Sending the shot to %1</source>
        <translation>Enviando la captura a %1</translation>
    </message>
    <message>
        <source>Upload the shot as PNG to %1; the link is copied</source>
        <translation>Subir la captura como PNG a %1; el enlace se copia</translation>
    </message>
    <message>
        <source>your bucket</source>
        <translation>su bucket</translation>
    </message>
    <message>
        <source>Object key %1 · Click to copy it again · Set a public URL in the settings to get links</source>
        <translation>Clave de objeto %1 · Haga clic para volver a copiarla · Indique una URL pública en los ajustes para obtener enlaces</translation>
    </message>
    <message>
        <source>%1 · Click to copy the link again</source>
        <translation>%1 · Haga clic para volver a copiar el enlace</translation>
    </message>
    <message>
        <source>%1 · Click to try again</source>
        <translation>%1 · Haga clic para volver a intentarlo</translation>
    </message>
    <message>
        <source>Keep Open</source>
        <translation>Mantener abierto</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>Fijar</translation>
    </message>
    <message>
        <source>Pin the shot to the screen, above other windows (Ctrl+Shift+P)</source>
        <translation>Fijar la captura en la pantalla, sobre las demás ventanas (Ctrl+Mayús+P)</translation>
    </message>
</context>
<context>
    <name>nubo::ShotCameraBubble</name>
    <message>
        <source>No camera is available.</source>
        <translation>No hay ninguna cámara disponible.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotCameraPreview</name>
    <message>
        <source>Drag to move the camera; scroll or drag its corner to resize it</source>
        <translation>Arrastre para mover la cámara; desplace o arrastre su esquina para cambiar su tamaño</translation>
    </message>
    <message>
        <source>Starting the camera…</source>
        <translation>Iniciando la cámara…</translation>
    </message>
</context>
<context>
    <name>nubo::ShotCaptureOverlay</name>
    <message>
        <source>Drag to capture · Esc: Cancel</source>
        <translation>Arrastre para capturar · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Drag to capture · Space: Window · Esc: Cancel</source>
        <translation>Arrastre para capturar · Espacio: Ventana · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Click a window · Space: Area · Esc: Cancel</source>
        <translation>Haga clic en una ventana · Espacio: Área · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Drag to select scroll area · Esc: Cancel</source>
        <translation>Arrastre para elegir el área de desplazamiento · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Drag</source>
        <translation>Arrastrar</translation>
    </message>
    <message>
        <source>Frame the area to record</source>
        <translation>Enmarcar el área que se grabará</translation>
    </message>
    <message>
        <source>Frame an area</source>
        <translation>Enmarcar un área</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espacio</translation>
    </message>
    <message>
        <source>Pick a window instead</source>
        <translation>Elegir una ventana en su lugar</translation>
    </message>
    <message>
        <source>Click or F</source>
        <translation>Clic o F</translation>
    </message>
    <message>
        <source>Record the whole screen</source>
        <translation>Grabar toda la pantalla</translation>
    </message>
    <message>
        <source>Arrows</source>
        <translation>Flechas</translation>
    </message>
    <message>
        <source>Move the area (Shift: 10 pt)</source>
        <translation>Mover el área (Mayús: 10 pt)</translation>
    </message>
    <message>
        <source>Alt+Arrows</source>
        <translation>Alt+Flechas</translation>
    </message>
    <message>
        <source>Resize the area</source>
        <translation>Cambiar el tamaño del área</translation>
    </message>
    <message>
        <source>Return, Double-Click</source>
        <translation>Intro, doble clic</translation>
    </message>
    <message>
        <source>Record the area</source>
        <translation>Grabar el área</translation>
    </message>
    <message>
        <source>Capture the area</source>
        <translation>Capturar el área</translation>
    </message>
    <message>
        <source>Release</source>
        <translation>Soltar</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Click here to hide this for good</source>
        <translation>Haga clic aquí para ocultarlo para siempre</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Teclas</translation>
    </message>
    <message>
        <source>Drag the area or its handles · Arrows: Move · Alt+Arrows: Resize · Shift: 10 pt · Return or Double-Click: Record · Esc: Cancel</source>
        <translation>Arrastre el área o sus tiradores · Flechas: Mover · Alt+Flechas: Tamaño · Mayús: 10 pt · Intro o doble clic: Grabar · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Drag the area or its handles · Arrows: Move · Alt+Arrows: Resize · Shift: 10 pt · Return or Double-Click: Capture · Esc: Cancel</source>
        <translation>Arrastre el área o sus tiradores · Flechas: Mover · Alt+Flechas: Tamaño · Mayús: 10 pt · Intro o doble clic: Capturar · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Drag an area to record · Click or F: Whole Screen · Space: Pick a Window · Esc: Cancel</source>
        <translation>Arrastre un área para grabar · Clic o F: Pantalla completa · Espacio: Elegir una ventana · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Drag to capture · Space: Pick a Window · Esc: Cancel</source>
        <translation>Arrastre para capturar · Espacio: Elegir una ventana · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Drag an area to record · Click or F: Whole Screen · Esc: Cancel</source>
        <translation>Arrastre un área para grabar · Clic o F: Pantalla completa · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Drag an area to record · Click or F: Whole Screen · Space: Window · Esc: Cancel</source>
        <translation>Arrastre un área para grabar · Clic o F: Pantalla completa · Espacio: Ventana · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Click a window to record · Space: Area · F: Whole Screen · Esc: Cancel</source>
        <translation>Haga clic en una ventana para grabarla · Espacio: Área · F: Pantalla completa · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Drag to select scroll area, scroll it to its end, then choose Capture Scrolling again · Esc: Cancel</source>
        <translation>Arrastre para elegir el área de desplazamiento, desplácela hasta el final y vuelva a elegir Capturar con desplazamiento · Esc: Cancelar</translation>
    </message>
    <message>
        <source>P</source>
        <translation>P</translation>
    </message>
    <message>
        <source>Pin it to the screen</source>
        <translation>Fijarlo en la pantalla</translation>
    </message>
</context>
<context>
    <name>nubo::ShotClipboard</name>
    <message>
        <source>The screenshot could not be put on the clipboard. %1</source>
        <translation>No se pudo poner la captura en el portapapeles. %1</translation>
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
        <translation>Cuadrado</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Recortar</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Ancho</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Alto</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Hecho</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>nubo::ShotDocument</name>
    <message>
        <source>There is not enough memory for an image of %1 × %2 pixels.</source>
        <translation>No hay memoria suficiente para una imagen de %1 × %2 píxeles.</translation>
    </message>
    <message>
        <source>An image of the shot is missing (there may not have been enough memory for it).</source>
        <translation>Falta una imagen de la captura (puede que no hubiera memoria suficiente).</translation>
    </message>
    <message>
        <source>An image of %1 × %2 pixels is too large: Nubo Shot takes images of up to %L3 pixels, none wider or taller than %L4.</source>
        <translation>Una imagen de %1 × %2 píxeles es demasiado grande: Nubo Shot admite imágenes de hasta %L3 píxeles, ninguna más ancha ni más alta de %L4.</translation>
    </message>
    <message>
        <source>The images of this shot would hold %L1 pixels together; a shot holds at most %L2.</source>
        <translation>Las imágenes de esta captura sumarían %L1 píxeles; una captura admite como máximo %L2.</translation>
    </message>
    <message>
        <source>The shot would be %L1 × %L2 points; it may be at most %L3 points wide and tall.</source>
        <translation>La captura mediría %L1 × %L2 puntos; puede tener como máximo %L3 puntos de ancho y de alto.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotDragHandle</name>
    <message>
        <source>Drag Me</source>
        <translation>Arrástrame</translation>
    </message>
    <message>
        <source>Drag PNG · Hold Alt at drop to keep open</source>
        <translation>Arrastrar el PNG · Mantenga Alt al soltar para dejarlo abierto</translation>
    </message>
</context>
<context>
    <name>nubo::ShotEditorModel</name>
    <message>
        <source>There is not enough memory to add an image of %1 × %2 pixels.</source>
        <translation>No hay memoria suficiente para añadir una imagen de %1 × %2 píxeles.</translation>
    </message>
    <message>
        <source>There is no image to add (it could not be read, or it is larger than Nubo Shot takes).</source>
        <translation>No hay ninguna imagen que añadir (no se pudo leer o es más grande de lo que admite Nubo Shot).</translation>
    </message>
</context>
<context>
    <name>nubo::ShotEditorWindow</name>
    <message>
        <source>Tools</source>
        <translation>Herramientas</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Salida</translation>
    </message>
    <message>
        <source>Width %1 pt</source>
        <translation>Ancho %1 pt</translation>
    </message>
    <message>
        <source>Size %1 pt</source>
        <translation>Tamaño %1 pt</translation>
    </message>
    <message>
        <source>Strength %1</source>
        <translation>Intensidad %1</translation>
    </message>
    <message>
        <source>A text holds at most %L1 characters.</source>
        <translation>Un texto admite como máximo %L1 caracteres.</translation>
    </message>
    <message>
        <source>Add Image</source>
        <translation>Añadir imagen</translation>
    </message>
    <message>
        <source>Images (*.png *.jpg *.jpeg *.webp *.bmp *.gif)</source>
        <translation>Imágenes (*.png *.jpg *.jpeg *.webp *.bmp *.gif)</translation>
    </message>
    <message>
        <source>Could Not Add Image</source>
        <translation>No se pudo añadir la imagen</translation>
    </message>
    <message>
        <source>Select annotations to cut them</source>
        <translation>Seleccione anotaciones para cortarlas</translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation>Rueda</translation>
    </message>
    <message>
        <source>Size of the tool</source>
        <translation>Tamaño de la herramienta</translation>
    </message>
    <message>
        <source>Space+Drag</source>
        <translation>Espacio+Arrastrar</translation>
    </message>
    <message>
        <source>Move around the shot</source>
        <translation>Moverse por la captura</translation>
    </message>
    <message>
        <source>Arrows</source>
        <translation>Flechas</translation>
    </message>
    <message>
        <source>Move the selection</source>
        <translation>Mover la selección</translation>
    </message>
    <message>
        <source>Ctrl+Z, Ctrl+Shift+Z</source>
        <translation>Ctrl+Z, Ctrl+Mayús+Z</translation>
    </message>
    <message>
        <source>Undo, Redo</source>
        <translation>Deshacer, Rehacer</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Ctrl+C</translation>
    </message>
    <message>
        <source>Copy the shot</source>
        <translation>Copiar la captura</translation>
    </message>
    <message>
        <source>Ctrl+S</source>
        <translation>Ctrl+S</translation>
    </message>
    <message>
        <source>Save the shot</source>
        <translation>Guardar la captura</translation>
    </message>
    <message>
        <source>Ctrl+Shift+S</source>
        <translation>Ctrl+Mayús+S</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Guardar como</translation>
    </message>
    <message>
        <source>Ctrl+1, Ctrl+9</source>
        <translation>Ctrl+1, Ctrl+9</translation>
    </message>
    <message>
        <source>Actual size, Fit</source>
        <translation>Tamaño real, Ajustar</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Deselect, then close</source>
        <translation>Deseleccionar y luego cerrar</translation>
    </message>
    <message>
        <source>Discard this screenshot?</source>
        <translation>¿Descartar esta captura?</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Descartar</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Teclas</translation>
    </message>
    <message>
        <source>Click here to hide this for good</source>
        <translation>Haga clic aquí para ocultarlo para siempre</translation>
    </message>
    <message>
        <source>Your changes to this screenshot have not been copied or saved.</source>
        <translation>Sus cambios en esta captura no se han copiado ni guardado.</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rehacer</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Seleccionar todo</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Eliminar</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Copy and Keep Open</source>
        <translation>Copiar y dejar abierto</translation>
    </message>
    <message>
        <source>Save and Keep Open</source>
        <translation>Guardar y dejar abierto</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Cortar</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Pegar</translation>
    </message>
    <message>
        <source>Bring Forward</source>
        <translation>Traer adelante</translation>
    </message>
    <message>
        <source>Send Backward</source>
        <translation>Enviar atrás</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Acercar</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Alejar</translation>
    </message>
    <message>
        <source>Actual Size</source>
        <translation>Tamaño real</translation>
    </message>
    <message>
        <source>Fit in Window</source>
        <translation>Ajustar a la ventana</translation>
    </message>
    <message>
        <source>%1 copied</source>
        <translation>%1 copiado</translation>
    </message>
    <message>
        <source>Copy Text</source>
        <translation>Copiar texto</translation>
    </message>
    <message>
        <source>Copy the shot&apos;s text, or the selected words (Ctrl+Shift+C)</source>
        <translation>Copiar el texto de la captura o las palabras elegidas (Ctrl+Mayús+C)</translation>
    </message>
    <message>
        <source>Hide Sensitive Text…</source>
        <translation>Ocultar texto sensible…</translation>
    </message>
    <message>
        <source>Pixelate e-mail addresses, phone numbers, keys and the like (Ctrl+Shift+H)</source>
        <translation>Pixelar direcciones de correo, números de teléfono, claves y similares (Ctrl+Mayús+H)</translation>
    </message>
    <message>
        <source>Reading the text…</source>
        <translation>Leyendo el texto…</translation>
    </message>
    <message>
        <source>No text found in this shot</source>
        <translation>No se encontró texto en esta captura</translation>
    </message>
    <message numerus="yes">
        <source>Copied %n word(s)</source>
        <translation>
            <numerusform>%n palabra copiada</numerusform>
            <numerusform>%n palabras copiadas</numerusform>
        </translation>
    </message>
    <message>
        <source>No sensitive text found</source>
        <translation>No se encontró texto sensible</translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) hidden</source>
        <translation>
            <numerusform>%n elemento oculto</numerusform>
            <numerusform>%n elementos ocultos</numerusform>
        </translation>
    </message>
    <message>
        <source>Ctrl+Shift+C</source>
        <translation>Ctrl+Mayús+C</translation>
    </message>
    <message>
        <source>Copy the text</source>
        <translation>Copiar el texto</translation>
    </message>
    <message>
        <source>Pin to Screen</source>
        <translation>Fijar en pantalla</translation>
    </message>
</context>
<context>
    <name>nubo::ShotEmojiPicker</name>
    <message>
        <source>Search emoji</source>
        <translation>Buscar emoji</translation>
    </message>
    <message>
        <source>Recently Used</source>
        <translation>Usados recientemente</translation>
    </message>
    <message>
        <source>No emoji is called “%1”.</source>
        <translation>Ningún emoji se llama «%1».</translation>
    </message>
    <message>
        <source>Emoji you place show here.</source>
        <translation>Los emoji que coloque aparecen aquí.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotFeature</name>
    <message>
        <source>Could Not Copy Screenshot</source>
        <translation>No se pudo copiar la captura</translation>
    </message>
    <message>
        <source>%1 is not available yet.</source>
        <translation>%1 aún no está disponible.</translation>
    </message>
    <message>
        <source>Could Not Capture Screen</source>
        <translation>No se pudo capturar la pantalla</translation>
    </message>
    <message>
        <source>Could Not Open Recent Image</source>
        <translation>No se pudo abrir la imagen reciente</translation>
    </message>
    <message>
        <source>Could Not Open Screenshot</source>
        <translation>No se pudo abrir la captura de pantalla</translation>
    </message>
    <message>
        <source>Could Not Read Text</source>
        <translation>No se pudo leer el texto</translation>
    </message>
    <message>
        <source>No Text Found</source>
        <translation>No se encontró texto</translation>
    </message>
    <message>
        <source>No text could be read in the framed area.</source>
        <translation>No se pudo leer ningún texto en el área elegida.</translation>
    </message>
    <message>
        <source>Open in Editor</source>
        <translation>Abrir en el editor</translation>
    </message>
    <message numerus="yes">
        <source>Copied %n word(s)</source>
        <translation>
            <numerusform>%n palabra copiada</numerusform>
            <numerusform>%n palabras copiadas</numerusform>
        </translation>
    </message>
    <message>
        <source>No area has been captured yet. Frame one with Capture Area first.</source>
        <translation>Todavía no se ha capturado ningún área. Elija primero una con «Capturar un área».</translation>
    </message>
    <message>
        <source>The display of the previous area is no longer connected.</source>
        <translation>La pantalla del área anterior ya no está conectada.</translation>
    </message>
    <message>
        <source>The display of the previous area changed its size (%1 × %2 pixels, now %3 × %4). Frame the area again.</source>
        <translation>La pantalla del área anterior cambió de tamaño (%1 × %2 píxeles, ahora %3 × %4). Vuelva a elegir el área.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotGlobalShortcuts</name>
    <message>
        <source>Record Screen</source>
        <translation>Grabar la pantalla</translation>
    </message>
    <message>
        <source>Capture Area</source>
        <translation>Capturar un área</translation>
    </message>
    <message>
        <source>Capture Window</source>
        <translation>Capturar una ventana</translation>
    </message>
    <message>
        <source>Capture Fullscreen</source>
        <translation>Capturar la pantalla completa</translation>
    </message>
    <message>
        <source>Capture Scrolling</source>
        <translation>Capturar con desplazamiento</translation>
    </message>
    <message>
        <source>Global shortcuts are not available on this desktop.</source>
        <translation>Los atajos globales no están disponibles en este escritorio.</translation>
    </message>
    <message>
        <source>Capture Text</source>
        <translation>Capturar texto</translation>
    </message>
    <message>
        <source>Capture Previous Area</source>
        <translation>Capturar el área anterior</translation>
    </message>
</context>
<context>
    <name>nubo::ShotImageFile</name>
    <message>
        <source>Could not read “%1”: %2.</source>
        <translation>No se pudo leer «%1»: %2.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotNotifications</name>
    <message>
        <source>Saved to %1</source>
        <translation>Guardada en %1</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Mostrar en la carpeta</translation>
    </message>
</context>
<context>
    <name>nubo::ShotOutputActions</name>
    <message>
        <source>Upload</source>
        <translation>Subida</translation>
    </message>
    <message>
        <source>Upload outcome unknown. Retry may create a duplicate upload.</source>
        <translation>Se desconoce el resultado de la subida. Reintentar puede crear una subida duplicada.</translation>
    </message>
    <message>
        <source>Retry upload</source>
        <translation>Reintentar la subida</translation>
    </message>
    <message>
        <source>Could Not Copy Screenshot</source>
        <translation>No se pudo copiar la captura</translation>
    </message>
    <message>
        <source>Could Not Save Screenshot</source>
        <translation>No se pudo guardar la captura</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Guardar como</translation>
    </message>
    <message>
        <source>Could Not Drag Screenshot</source>
        <translation>No se pudo arrastrar la captura</translation>
    </message>
    <message>
        <source>Could Not Open Screenshot</source>
        <translation>No se pudo abrir la captura</translation>
    </message>
    <message>
        <source>Could Not Share Screenshot</source>
        <translation>No se pudo compartir la captura</translation>
    </message>
    <message>
        <source>Copied %1</source>
        <translation>%1 copiado</translation>
    </message>
    <message>
        <source>Filebin is public: anyone with the link can see this shot.</source>
        <translation>Filebin es público: cualquiera con el enlace puede ver esta captura.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotPinWindow</name>
    <message>
        <source>Pinned Shot</source>
        <translation>Captura fijada</translation>
    </message>
    <message>
        <source>Drag to move · Wheel: Zoom · Ctrl+Wheel: Opacity · Double-Click or Esc: Close</source>
        <translation>Arrastrar para mover · Rueda: zoom · Ctrl+rueda: opacidad · Doble clic o Esc: cerrar</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>Open in Editor</source>
        <translation>Abrir en el editor</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Opacidad</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>nubo::ShotPins</name>
    <message>
        <source>Could Not Save Screenshot</source>
        <translation>No se pudo guardar la captura</translation>
    </message>
    <message>
        <source>Pinned as a normal window</source>
        <translation>Fijada como ventana normal</translation>
    </message>
    <message>
        <source>This desktop does not let Nubo Shot keep a pinned shot above other windows; it stays where the desktop puts it.</source>
        <translation>Este escritorio no permite a Nubo Shot mantener una captura fijada sobre las demás ventanas; se queda donde el escritorio la coloque.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingControlBar</name>
    <message>
        <source>Pause Recording</source>
        <translation>Pausar la grabación</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>Detener la grabación</translation>
    </message>
    <message>
        <source>Cancel Recording</source>
        <translation>Cancelar la grabación</translation>
    </message>
    <message>
        <source>Resume Recording</source>
        <translation>Reanudar la grabación</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingControls</name>
    <message>
        <source>No camera is available.</source>
        <translation>No hay ninguna cámara disponible.</translation>
    </message>
    <message>
        <source>System Audio</source>
        <translation>Audio del sistema</translation>
    </message>
    <message>
        <source>Record what the computer plays</source>
        <translation>Grabar lo que reproduce el equipo</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>Micrófono</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Cámara</translation>
    </message>
    <message>
        <source>Show your camera as a round bubble in the recording</source>
        <translation>Mostrar su cámara como una burbuja redonda en la grabación</translation>
    </message>
    <message>
        <source>Cursor</source>
        <translation>Puntero</translation>
    </message>
    <message>
        <source>Show the pointer in the recording</source>
        <translation>Mostrar el puntero en la grabación</translation>
    </message>
    <message>
        <source>Clicks</source>
        <translation>Clics</translation>
    </message>
    <message>
        <source>Ring every click in the recording</source>
        <translation>Marcar cada clic con un anillo en la grabación</translation>
    </message>
    <message>
        <source>30 fps</source>
        <translation>30 fps</translation>
    </message>
    <message>
        <source>60 fps</source>
        <translation>60 fps</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Estándar</translation>
    </message>
    <message>
        <source>Native</source>
        <translation>Nativa</translation>
    </message>
    <message>
        <source>One pixel a point: smaller files on HiDPI screens</source>
        <translation>Un píxel por punto: archivos más pequeños en pantallas HiDPI</translation>
    </message>
    <message>
        <source>Every pixel of the screen</source>
        <translation>Cada píxel de la pantalla</translation>
    </message>
    <message>
        <source>Default microphone</source>
        <translation>Micrófono predeterminado</translation>
    </message>
    <message>
        <source>%1 (not connected)</source>
        <translation>%1 (no conectado)</translation>
    </message>
    <message>
        <source>HEVC needs a hardware video encoder (VAAPI or NVENC), and this computer has none.</source>
        <translation>HEVC necesita un codificador de vídeo por hardware (VAAPI o NVENC) y este equipo no tiene ninguno.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingCountdown</name>
    <message>
        <source>Esc: Cancel</source>
        <translation>Esc: Cancelar</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingFlow</name>
    <message>
        <source>This desktop cannot be recorded by Nubo Shot yet.</source>
        <translation>Nubo Shot aún no puede grabar este escritorio.</translation>
    </message>
    <message>
        <source>Could Not Record Screen</source>
        <translation>No se pudo grabar la pantalla</translation>
    </message>
    <message>
        <source>window picked at the start</source>
        <translation>ventana elegida al empezar</translation>
    </message>
    <message>
        <source>Recording the screen</source>
        <translation>Grabando la pantalla</translation>
    </message>
    <message>
        <source>Recording saved</source>
        <translation>Grabación guardada</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingOptionsBar</name>
    <message>
        <source>Cancel (Esc)</source>
        <translation>Cancelar (Esc)</translation>
    </message>
    <message>
        <source>Stop from the menu</source>
        <translation>Detener desde el menú</translation>
    </message>
    <message>
        <source>Start Recording</source>
        <translation>Empezar a grabar</translation>
    </message>
    <message>
        <source>Start (Return)</source>
        <translation>Empezar (Intro)</translation>
    </message>
    <message>
        <source>Or by the shortcut, or with “nuboshot capture recording”</source>
        <translation>O con el atajo, o con «nuboshot capture recording»</translation>
    </message>
</context>
<context>
    <name>nubo::ShotReviewTimeline</name>
    <message>
        <source>Blur %1</source>
        <translation>Desenfoque %1</translation>
    </message>
</context>
<context>
    <name>nubo::ShotReviewWindow</name>
    <message>
        <source>%1 — Review</source>
        <translation>%1 — Revisión</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Reproducir</translation>
    </message>
    <message>
        <source>Play or pause (Space)</source>
        <translation>Reproducir o pausar (Espacio)</translation>
    </message>
    <message>
        <source>Split</source>
        <translation>Dividir</translation>
    </message>
    <message>
        <source>Split at the playhead (S)</source>
        <translation>Dividir en el cabezal (S)</translation>
    </message>
    <message>
        <source>Remove Segment</source>
        <translation>Quitar segmento</translation>
    </message>
    <message>
        <source>Cut out the segment under the playhead (Delete)</source>
        <translation>Quitar el segmento bajo el cabezal (Supr)</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>Desenfocar</translation>
    </message>
    <message>
        <source>Drag over the picture to blur a region (B)</source>
        <translation>Arrastre sobre la imagen para desenfocar una zona (B)</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Recortar</translation>
    </message>
    <message>
        <source>Crop the picture (C)</source>
        <translation>Recortar la imagen (C)</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Silenciar</translation>
    </message>
    <message>
        <source>Export without sound (M)</source>
        <translation>Exportar sin sonido (M)</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>Undo (Ctrl+Z)</source>
        <translation>Deshacer (Ctrl+Z)</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rehacer</translation>
    </message>
    <message>
        <source>Redo (Ctrl+Shift+Z)</source>
        <translation>Rehacer (Ctrl+Mayús+Z)</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Mostrar en la carpeta</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>Guardar como…</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportar</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausar</translation>
    </message>
    <message>
        <source>%1 × %2 · about %3</source>
        <translation>%1 × %2 · unos %3</translation>
    </message>
    <message>
        <source>Save Edited Recording</source>
        <translation>Guardar la grabación editada</translation>
    </message>
    <message>
        <source>MPEG-4 movie (*.mp4)</source>
        <translation>Vídeo MPEG-4 (*.mp4)</translation>
    </message>
    <message>
        <source>Export cancelled</source>
        <translation>Exportación cancelada</translation>
    </message>
    <message>
        <source>Export failed</source>
        <translation>Falló la exportación</translation>
    </message>
    <message>
        <source>Export Failed</source>
        <translation>Falló la exportación</translation>
    </message>
    <message>
        <source>Discard Edits?</source>
        <translation>¿Descartar los cambios?</translation>
    </message>
    <message>
        <source>Your edits to “%1” have not been exported.</source>
        <translation>Sus cambios en «%1» no se han exportado.</translation>
    </message>
    <message>
        <source>The recording itself stays as it is.</source>
        <translation>La grabación en sí queda como está.</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Descartar</translation>
    </message>
    <message>
        <source>Copied “%1”</source>
        <translation>«%1» copiado</translation>
    </message>
    <message>
        <source>Exporting “%1”…</source>
        <translation>Exportando «%1»…</translation>
    </message>
    <message>
        <source>Exported “%1”</source>
        <translation>«%1» exportado</translation>
    </message>
    <message>
        <source>Export format and size</source>
        <translation>Formato y tamaño de la exportación</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Formato</translation>
    </message>
    <message>
        <source>MP4 Movie</source>
        <translation>Película MP4</translation>
    </message>
    <message>
        <source>GIF</source>
        <translation>GIF</translation>
    </message>
    <message>
        <source>Animated WebP</source>
        <translation>WebP animado</translation>
    </message>
    <message>
        <source>Frame Rate</source>
        <translation>Fotogramas por segundo</translation>
    </message>
    <message>
        <source>%1 fps</source>
        <translation>%1 fps</translation>
    </message>
    <message>
        <source>Width · Never upscaled</source>
        <translation>Ancho · Nunca ampliado</translation>
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
        <translation>Animación GIF (*.gif)</translation>
    </message>
    <message>
        <source>Animated WebP (*.webp)</source>
        <translation>WebP animado (*.webp)</translation>
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
        <translation>&amp;Calidad:</translation>
    </message>
    <message>
        <source>S&amp;cale:</source>
        <translation>E&amp;scala:</translation>
    </message>
</context>
<context>
    <name>nubo::ShotScrollingPanel</name>
    <message>
        <source>Scrolling Capture</source>
        <translation>Captura con desplazamiento</translation>
    </message>
    <message>
        <source>Return: Done · Esc: Cancel</source>
        <translation>Intro: Hecho · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Auto-scroll</source>
        <translation>Desplazamiento automático</translation>
    </message>
    <message>
        <source>Scroll to the end by itself; any key or click stops</source>
        <translation>Desplazarse solo hasta el final; cualquier tecla o clic lo detiene</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Hecho</translation>
    </message>
    <message>
        <source>Scroll down to the end, or use Auto-scroll.</source>
        <translation>Desplácese hasta el final o use Desplazamiento automático.</translation>
    </message>
    <message>
        <source>%1 px tall</source>
        <translation>%1 px de alto</translation>
    </message>
    <message>
        <source>Stop Auto-scroll</source>
        <translation>Detener el desplazamiento automático</translation>
    </message>
</context>
<context>
    <name>nubo::ShotScrollingSession</name>
    <message>
        <source>this desktop offers no region streams</source>
        <translation>este escritorio no ofrece flujos de una región</translation>
    </message>
    <message>
        <source>Auto-scroll is not available on this desktop: scroll by hand.</source>
        <translation>El desplazamiento automático no está disponible en este escritorio: desplácese a mano.</translation>
    </message>
    <message>
        <source>Scroll back up a little</source>
        <translation>Vuelva a subir un poco</translation>
    </message>
    <message>
        <source>Auto-scrolling… Any key or click stops it.</source>
        <translation>Desplazamiento automático… Cualquier tecla o clic lo detiene.</translation>
    </message>
    <message>
        <source>Keep scrolling down; Done when you reach the end.</source>
        <translation>Siga desplazándose hacia abajo; Hecho cuando llegue al final.</translation>
    </message>
    <message>
        <source>Reached the size limit.</source>
        <translation>Se alcanzó el límite de tamaño.</translation>
    </message>
    <message>
        <source>The scrolling capture reached its size limit and stopped at %1 pixels.</source>
        <translation>La captura con desplazamiento alcanzó su límite de tamaño y se detuvo en %1 píxeles.</translation>
    </message>
    <message>
        <source>Auto-scroll stopped.</source>
        <translation>Desplazamiento automático detenido.</translation>
    </message>
    <message>
        <source>Auto-scroll reached the end: press Done.</source>
        <translation>El desplazamiento automático llegó al final: pulse Hecho.</translation>
    </message>
    <message>
        <source>this desktop cannot scroll for us</source>
        <translation>este escritorio no puede desplazarse por nosotros</translation>
    </message>
    <message>
        <source>Auto-scroll could not start: %1.</source>
        <translation>No se pudo iniciar el desplazamiento automático: %1.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotSensitiveTextDialog</name>
    <message>
        <source>E-mail address</source>
        <translation>Correo electrónico</translation>
    </message>
    <message>
        <source>Phone number</source>
        <translation>Número de teléfono</translation>
    </message>
    <message>
        <source>IP address</source>
        <translation>Dirección IP</translation>
    </message>
    <message>
        <source>Card number</source>
        <translation>Número de tarjeta</translation>
    </message>
    <message>
        <source>Key or token</source>
        <translation>Clave o token</translation>
    </message>
    <message>
        <source>Private key</source>
        <translation>Clave privada</translation>
    </message>
    <message>
        <source>Hide Sensitive Text</source>
        <translation>Ocultar texto sensible</translation>
    </message>
    <message>
        <source>The ticked text is pixelated. Untick what may stay readable.</source>
        <translation>El texto marcado se pixela. Desmarque lo que puede seguir siendo legible.</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>Ocultar</translation>
    </message>
</context>
<context>
    <name>nubo::ShotSettingsBackup</name>
    <message>
        <source>not a setting of this version</source>
        <translation>no es un ajuste de esta versión</translation>
    </message>
    <message>
        <source>not true or false</source>
        <translation>ni true ni false</translation>
    </message>
    <message>
        <source>not a text</source>
        <translation>no es un texto</translation>
    </message>
    <message>
        <source>not png, jpeg, heic or webp</source>
        <translation>no es png, jpeg, heic ni webp</translation>
    </message>
    <message>
        <source>not auto, r2 or filebin</source>
        <translation>no es auto, r2 ni filebin</translation>
    </message>
    <message>
        <source>not a capture of this version</source>
        <translation>no es una captura de esta versión</translation>
    </message>
    <message>
        <source>not a key</source>
        <translation>no es una combinación de teclas</translation>
    </message>
    <message>
        <source>not a tool of this version</source>
        <translation>no es una herramienta de esta versión</translation>
    </message>
    <message>
        <source>not a style</source>
        <translation>no es un estilo</translation>
    </message>
    <message>
        <source>not a plain value</source>
        <translation>no es un valor simple</translation>
    </message>
    <message>
        <source>no settings in it</source>
        <translation>no contiene ajustes</translation>
    </message>
    <message>
        <source>The file is not a Nubo Shot settings backup: nothing was restored.</source>
        <translation>El archivo no es una copia de los ajustes de Nubo Shot: no se restauró nada.</translation>
    </message>
    <message>
        <source>secrets are never restored from a file</source>
        <translation>los secretos nunca se restauran desde un archivo</translation>
    </message>
    <message>
        <source>“%1” is not a file.</source>
        <translation>«%1» no es un archivo.</translation>
    </message>
    <message>
        <source>“%1” cannot be read: %2.</source>
        <translation>No se puede leer «%1»: %2.</translation>
    </message>
    <message>
        <source> The backup comes from a newer Nubo Shot.</source>
        <translation> La copia procede de una versión más reciente de Nubo Shot.</translation>
    </message>
    <message>
        <source> Skipped: </source>
        <translation> Omitidos: </translation>
    </message>
    <message>
        <source>The file is not a settings backup, or it is damaged (%1): nothing was restored.</source>
        <translation>El archivo no es una copia de los ajustes o está dañado (%1): no se restauró nada.</translation>
    </message>
    <message>
        <source>“%1” is larger than any settings backup (over 1 MiB): nothing was restored.</source>
        <translation>«%1» es más grande que cualquier copia de los ajustes (más de 1 MiB): no se restauró nada.</translation>
    </message>
    <message numerus="yes">
        <source>%n setting(s) restored.</source>
        <translation>
            <numerusform>%n ajuste restaurado.</numerusform>
            <numerusform>%n ajustes restaurados.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nubo::ShotSettingsPage</name>
    <message>
        <source>Backup</source>
        <translation>Copia de seguridad</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>Editor</translation>
    </message>
    <message>
        <source>General</source>
        <translation>General</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Salida</translation>
    </message>
    <message>
        <source>Permissions</source>
        <translation>Permisos</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Grabación</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Atajos</translation>
    </message>
    <message>
        <source>Uploads</source>
        <translation>Subidas</translation>
    </message>
</context>
<context>
    <name>nubo::ShotSettingsWindow</name>
    <message>
        <source>Nubo Shot Settings</source>
        <translation>Ajustes de Nubo Shot</translation>
    </message>
</context>
<context>
    <name>nubo::ShotShare</name>
    <message>
        <source>The shot could not be prepared for sharing.</source>
        <translation>No se pudo preparar la captura para compartirla.</translation>
    </message>
    <message>
        <source>No application could be offered to open the shot.</source>
        <translation>No se pudo ofrecer ninguna aplicación para abrir la captura.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotShortcutField</name>
    <message>
        <source>Click, then press the keys</source>
        <translation>Haga clic y pulse las teclas</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Desactivado</translation>
    </message>
    <message>
        <source>No shortcut for this</source>
        <translation>Sin atajo para esto</translation>
    </message>
    <message>
        <source>%1 already does %2.</source>
        <translation>%1 ya hace «%2».</translation>
    </message>
</context>
<context>
    <name>nubo::ShotStatusMenu</name>
    <message>
        <source>Record Screen</source>
        <translation>Grabar la pantalla</translation>
    </message>
    <message>
        <source>Record Window</source>
        <translation>Grabar una ventana</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>Detener la grabación</translation>
    </message>
    <message>
        <source>Cancel Recording</source>
        <translation>Cancelar la grabación</translation>
    </message>
    <message>
        <source>Open Image in Nubo Shot…</source>
        <translation>Abrir imagen en Nubo Shot…</translation>
    </message>
    <message>
        <source>Recent</source>
        <translation>Recientes</translation>
    </message>
    <message>
        <source>Recent Uploads…</source>
        <translation>Subidas recientes…</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Ajustes…</translation>
    </message>
    <message>
        <source>Quit Nubo Shot</source>
        <translation>Salir de Nubo Shot</translation>
    </message>
    <message>
        <source>Copied image</source>
        <translation>Imagen copiada</translation>
    </message>
    <message>
        <source>No recent images</source>
        <translation>No hay imágenes recientes</translation>
    </message>
    <message>
        <source>Clear Recent</source>
        <translation>Borrar recientes</translation>
    </message>
    <message>
        <source>No windows to record</source>
        <translation>No hay ventanas que grabar</translation>
    </message>
    <message>
        <source>Saving the recording…</source>
        <translation>Guardando la grabación…</translation>
    </message>
    <message>
        <source>Resume Recording</source>
        <translation>Reanudar la grabación</translation>
    </message>
    <message>
        <source>Pause Recording</source>
        <translation>Pausar la grabación</translation>
    </message>
    <message>
        <source>d MMM, HH:mm</source>
        <translation>d MMM, HH:mm</translation>
    </message>
    <message>
        <source>Delay</source>
        <translation>Retardo</translation>
    </message>
    <message>
        <source>No Delay</source>
        <translation>Sin retardo</translation>
    </message>
    <message numerus="yes">
        <source>%n second(s)</source>
        <translation>
            <numerusform>%n segundo</numerusform>
            <numerusform>%n segundos</numerusform>
        </translation>
    </message>
    <message>
        <source>Pinned</source>
        <translation>Fijadas</translation>
    </message>
    <message>
        <source>Close All Pins</source>
        <translation>Cerrar todas las fijadas</translation>
    </message>
    <message>
        <source>Cancel Delayed Capture (%1 s)</source>
        <translation>Cancelar la captura con retardo (%1 s)</translation>
    </message>
</context>
<context>
    <name>nubo::ShotStyleBar</name>
    <message>
        <source>Style</source>
        <translation>Estilo</translation>
    </message>
    <message>
        <source>Other Colour…</source>
        <translation>Otro color…</translation>
    </message>
    <message>
        <source>Other Colour</source>
        <translation>Otro color</translation>
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
        <translation>Elegir el emoji</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Color</translation>
    </message>
    <message>
        <source>Drag the frame or its handles; Return crops</source>
        <translation>Arrastre el marco o sus tiradores; Intro recorta</translation>
    </message>
    <message>
        <source>Click to copy a colour and use it for drawing</source>
        <translation>Haga clic para copiar un color y dibujar con él</translation>
    </message>
    <message>
        <source>Click to select, drag to move; Shift adds to the selection</source>
        <translation>Haga clic para seleccionar, arrastre para mover; Mayús añade a la selección</translation>
    </message>
    <message>
        <source>&amp;Width</source>
        <translation>&amp;Ancho</translation>
    </message>
    <message>
        <source>&amp;Size</source>
        <translation>&amp;Tamaño</translation>
    </message>
    <message>
        <source>&amp;Outline</source>
        <translation>C&amp;ontorno</translation>
    </message>
    <message>
        <source>&amp;Emoji</source>
        <translation>&amp;Emoji</translation>
    </message>
    <message>
        <source>Drag over the words to select them; Ctrl+C copies them</source>
        <translation>Arrastre sobre las palabras para elegirlas; Ctrl+C las copia</translation>
    </message>
</context>
<context>
    <name>nubo::ShotTextLayer</name>
    <message>
        <source>No text found in this shot</source>
        <translation>No se encontró texto en esta captura</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Code copied</source>
        <translation>Código copiado</translation>
    </message>
    <message>
        <source>Open Link</source>
        <translation>Abrir enlace</translation>
    </message>
    <message>
        <source>No application opens this link</source>
        <translation>Ninguna aplicación abre este enlace</translation>
    </message>
</context>
<context>
    <name>nubo::ShotTools</name>
    <message>
        <source>Crop</source>
        <translation>Recortar</translation>
    </message>
    <message>
        <source>Add image</source>
        <translation>Añadir imagen</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Seleccionar</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Rectángulo</translation>
    </message>
    <message>
        <source>Filled rectangle</source>
        <translation>Rectángulo relleno</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>Elipse</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Línea</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>Flecha</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texto</translation>
    </message>
    <message>
        <source>Blur / Censor</source>
        <translation>Desenfocar / Censurar</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Número</translation>
    </message>
    <message>
        <source>Draw</source>
        <translation>Dibujar</translation>
    </message>
    <message>
        <source>Highlighter</source>
        <translation>Resaltador</translation>
    </message>
    <message>
        <source>Emoji</source>
        <translation>Emoji</translation>
    </message>
    <message>
        <source>Pick color</source>
        <translation>Cuentagotas</translation>
    </message>
    <message>
        <source>Select text</source>
        <translation>Seleccionar texto</translation>
    </message>
</context>
<context>
    <name>nubo::ShotUpload</name>
    <message>
        <source>Upload to Filebin</source>
        <translation>Subir a Filebin</translation>
    </message>
    <message>
        <source>Uploading… %1%</source>
        <translation>Subiendo… %1 %</translation>
    </message>
    <message>
        <source>Uploading…</source>
        <translation>Subiendo…</translation>
    </message>
    <message>
        <source>Upload complete · Link copied</source>
        <translation>Subida completa · Enlace copiado</translation>
    </message>
    <message>
        <source>Upload complete · Key copied</source>
        <translation>Subida completa · Clave copiada</translation>
    </message>
    <message>
        <source>Upload failed · Retry</source>
        <translation>Falló la subida · Reintentar</translation>
    </message>
    <message>
        <source>Upload uncertain · Retry</source>
        <translation>Subida incierta · Reintentar</translation>
    </message>
    <message>
        <source>Upload to R2</source>
        <translation>Subir a R2</translation>
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
        <translation>Subidas recientes</translation>
    </message>
    <message>
        <source>Delete from Filebin</source>
        <translation>Eliminar de Filebin</translation>
    </message>
    <message>
        <source>Delete “%1” from Filebin?</source>
        <translation>¿Eliminar «%1» de Filebin?</translation>
    </message>
    <message>
        <source>Its link stops working for everyone.</source>
        <translation>Su enlace dejará de funcionar para todos.</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Eliminar</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Archivo</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Destino</translation>
    </message>
    <message>
        <source>Uploaded</source>
        <translation>Subido</translation>
    </message>
    <message>
        <source>Kept until</source>
        <translation>Se conserva hasta</translation>
    </message>
    <message>
        <source>Link or key</source>
        <translation>Enlace o clave</translation>
    </message>
    <message>
        <source>Copy Link</source>
        <translation>Copiar enlace</translation>
    </message>
    <message>
        <source>Open Link</source>
        <translation>Abrir enlace</translation>
    </message>
    <message>
        <source>Copied %1</source>
        <translation>%1 copiado</translation>
    </message>
    <message>
        <source>Nothing uploaded yet.</source>
        <translation>Aún no se ha subido nada.</translation>
    </message>
    <message>
        <source>Deleted</source>
        <translation>Eliminado</translation>
    </message>
    <message>
        <source>Expired</source>
        <translation>Caducado</translation>
    </message>
    <message>
        <source>Until deleted</source>
        <translation>Hasta que se elimine</translation>
    </message>
    <message>
        <source>Bucket “%1”</source>
        <translation>Bucket «%1»</translation>
    </message>
    <message>
        <source>Filebin</source>
        <translation>Filebin</translation>
    </message>
    <message>
        <source>Objects in a bucket are deleted with the bucket&apos;s own tools</source>
        <translation>Los objetos de un bucket se eliminan con las herramientas del propio bucket</translation>
    </message>
    <message>
        <source>Deleting %1…</source>
        <translation>Eliminando %1…</translation>
    </message>
    <message>
        <source>Deleted %1 from Filebin.</source>
        <translation>%1 eliminado de Filebin.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotUploadStatus</name>
    <message>
        <source>The shot could not be read for the upload: %1.</source>
        <translation>No se pudo leer la captura para subirla: %1.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotZoomControls</name>
    <message>
        <source>Zoom Out (Ctrl+-)</source>
        <translation>Alejar (Ctrl+-)</translation>
    </message>
    <message>
        <source>Actual Size (Ctrl+0)</source>
        <translation>Tamaño real (Ctrl+0)</translation>
    </message>
    <message>
        <source>Zoom In (Ctrl++)</source>
        <translation>Acercar (Ctrl++)</translation>
    </message>
    <message>
        <source>Fit in Window (Ctrl+9)</source>
        <translation>Ajustar a la ventana (Ctrl+9)</translation>
    </message>
</context>
<context>
    <name>nubo::TextRecognition</name>
    <message>
        <source>Text in “%1” cannot be recognised: its data is not installed (install the package tesseract-ocr-%2).</source>
        <translation>No se puede reconocer texto en «%1»: sus datos no están instalados (instale el paquete tesseract-ocr-%2).</translation>
    </message>
    <message>
        <source>The text recognition engine could not start with “%1”.</source>
        <translation>El motor de reconocimiento de texto no pudo iniciarse con «%1».</translation>
    </message>
    <message>
        <source>The text could not be recognised.</source>
        <translation>No se pudo reconocer el texto.</translation>
    </message>
</context>
<context>
    <name>nubo::TrayApplication</name>
    <message>
        <source>Open Image in Nubo Shot</source>
        <translation>Abrir imagen en Nubo Shot</translation>
    </message>
    <message>
        <source>Images (*.png *.jpg *.jpeg *.webp *.bmp *.gif)</source>
        <translation>Imágenes (*.png *.jpg *.jpeg *.webp *.bmp *.gif)</translation>
    </message>
    <message>
        <source>Could Not Open Image</source>
        <translation>No se pudo abrir la imagen</translation>
    </message>
    <message>
        <source>Stop the recording and quit?</source>
        <translation>¿Detener la grabación y salir?</translation>
    </message>
    <message>
        <source>The recording is saved before Nubo Shot quits.</source>
        <translation>La grabación se guarda antes de que Nubo Shot se cierre.</translation>
    </message>
    <message>
        <source>Stop and Quit</source>
        <translation>Detener y salir</translation>
    </message>
    <message>
        <source>Nubo Shot — saving the recording</source>
        <translation>Nubo Shot: guardando la grabación</translation>
    </message>
    <message>
        <source>Open Shortcuts Settings</source>
        <translation>Abrir los ajustes de atajos</translation>
    </message>
    <message>
        <source>Recovered an interrupted recording</source>
        <translation>Se recuperó una grabación interrumpida</translation>
    </message>
    <message>
        <source>An interrupted recording could not be kept</source>
        <translation>No se pudo conservar una grabación interrumpida</translation>
    </message>
    <message numerus="yes">
        <source>%n shortcut(s) do not work</source>
        <translation>
            <numerusform>Un atajo no funciona</numerusform>
            <numerusform>%n atajos no funcionan</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 stopped before its first picture was saved; nothing of it could be kept.</source>
        <translation>%1 se detuvo antes de guardar su primera imagen; no se pudo conservar nada.</translation>
    </message>
    <message numerus="yes">
        <source>%n upload(s) were interrupted</source>
        <translation>
            <numerusform>Se interrumpió una subida</numerusform>
            <numerusform>Se interrumpieron %n subidas</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 may not have arrived. Upload it again from its editor, or see Recent Uploads.</source>
        <translation>Puede que %1 no haya llegado. Súbalo de nuevo desde su editor o consulte Subidas recientes.</translation>
    </message>
    <message>
        <source>Nubo Shot — paused at %1</source>
        <translation>Nubo Shot: en pausa en %1</translation>
    </message>
    <message>
        <source>Nubo Shot — recording %1</source>
        <translation>Nubo Shot: grabando %1</translation>
    </message>
    <message numerus="yes">
        <source>Nubo Shot — capturing in %n second(s)</source>
        <translation>
            <numerusform>Nubo Shot — captura en %n segundo</numerusform>
            <numerusform>Nubo Shot — captura en %n segundos</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nubo::Uploader</name>
    <message>
        <source>The S3 destination is not set up: give its endpoint, region, bucket and access key id in the Uploads settings.</source>
        <translation>El destino S3 no está configurado: indique su punto de conexión, región, bucket e ID de clave de acceso en los ajustes de Subidas.</translation>
    </message>
    <message>
        <source>The keyring holds no S3 secret for the access key id “%1”: enter it in the Uploads settings.</source>
        <translation>El llavero no guarda ningún secreto S3 para el ID de clave de acceso «%1»: escríbalo en los ajustes de Subidas.</translation>
    </message>
    <message>
        <source>The Filebin server “%1” is not an http or https address.</source>
        <translation>El servidor de Filebin «%1» no es una dirección http ni https.</translation>
    </message>
    <message>
        <source>The upload was cancelled.</source>
        <translation>Se canceló la subida.</translation>
    </message>
    <message>
        <source>The upload to %1 failed: %2.</source>
        <translation>Falló la subida a %1: %2.</translation>
    </message>
    <message>
        <source>Only Filebin uploads can be deleted from here.</source>
        <translation>Solo las subidas a Filebin se pueden eliminar desde aquí.</translation>
    </message>
    <message>
        <source>Filebin could not be reached: %1.</source>
        <translation>No se pudo acceder a Filebin: %1.</translation>
    </message>
</context>
<context>
    <name>nubo::UploadsSettingsPage</name>
    <message>
        <source>Destination</source>
        <translation>Destino</translation>
    </message>
    <message>
        <source>Automatic: the bucket when it is set up, else Filebin</source>
        <translation>Automático: el bucket si está configurado; si no, Filebin</translation>
    </message>
    <message>
        <source>S3-compatible bucket (R2)</source>
        <translation>Bucket compatible con S3 (R2)</translation>
    </message>
    <message>
        <source>Filebin</source>
        <translation>Filebin</translation>
    </message>
    <message>
        <source>Upload to:</source>
        <translation>Subir a:</translation>
    </message>
    <message>
        <source>A new bin for every upload</source>
        <translation>Un bin nuevo para cada subida</translation>
    </message>
    <message>
        <source>S3-compatible bucket</source>
        <translation>Bucket compatible con S3</translation>
    </message>
    <message>
        <source>Key prefix:</source>
        <translation>Prefijo de clave:</translation>
    </message>
    <message>
        <source>Optional, such as screenshots/</source>
        <translation>Opcional, como screenshots/</translation>
    </message>
    <message>
        <source>Public URL:</source>
        <translation>URL pública:</translation>
    </message>
    <message>
        <source>Optional, such as https://shots.example.com</source>
        <translation>Opcional, como https://shots.example.com</translation>
    </message>
    <message>
        <source>Bucket in the host name (virtual-hosted style)</source>
        <translation>Bucket en el nombre de host (virtual-hosted style)</translation>
    </message>
    <message>
        <source>Access key ID:</source>
        <translation>ID de clave de acceso:</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>Olvidar</translation>
    </message>
    <message>
        <source>Secret access key:</source>
        <translation>Clave de acceso secreta:</translation>
    </message>
    <message>
        <source>Try it</source>
        <translation>Probar</translation>
    </message>
    <message>
        <source>Test Upload</source>
        <translation>Subida de prueba</translation>
    </message>
    <message>
        <source>Uploads a small picture to the destination above</source>
        <translation>Sube una imagen pequeña al destino de arriba</translation>
    </message>
    <message>
        <source>The settings could not be kept: %1</source>
        <translation>No se pudieron guardar los ajustes: %1</translation>
    </message>
    <message>
        <source>Enter the access key ID first.</source>
        <translation>Escriba primero el ID de clave de acceso.</translation>
    </message>
    <message>
        <source>Asking the keyring…</source>
        <translation>Consultando el llavero…</translation>
    </message>
    <message>
        <source>Set · type to replace</source>
        <translation>Establecida · escriba para reemplazarla</translation>
    </message>
    <message>
        <source>Kept in the desktop&apos;s keyring.</source>
        <translation>Guardada en el llavero del escritorio.</translation>
    </message>
    <message>
        <source>Not set</source>
        <translation>No establecida</translation>
    </message>
    <message>
        <source>Not set: uploads to the bucket need it.</source>
        <translation>No establecida: las subidas al bucket la necesitan.</translation>
    </message>
    <message>
        <source>Not available</source>
        <translation>No disponible</translation>
    </message>
    <message>
        <source>Storing in the keyring…</source>
        <translation>Guardando en el llavero…</translation>
    </message>
    <message>
        <source>Uploading to the bucket…</source>
        <translation>Subiendo al bucket…</translation>
    </message>
    <message>
        <source>Uploading to Filebin…</source>
        <translation>Subiendo a Filebin…</translation>
    </message>
    <message>
        <source>Uploaded: %1</source>
        <translation>Subido: %1</translation>
    </message>
    <message>
        <source>Links are copied after upload. Without a public URL, object keys are copied.</source>
        <translation>Los enlaces se copian tras la subida. Sin una URL pública, se copian las claves de objeto.</translation>
    </message>
    <message>
        <source>Filebin keeps files for about a week; anyone with the link can see them.</source>
        <translation>Filebin conserva los archivos cerca de una semana; cualquiera con el enlace puede verlos.</translation>
    </message>
    <message>
        <source>Uploaded as %1 (no public URL, so this is the object key).</source>
        <translation>Subido como %1 (no hay URL pública, así que es la clave de objeto).</translation>
    </message>
    <message>
        <source>Server:</source>
        <translation>Servidor:</translation>
    </message>
    <message>
        <source>Bin:</source>
        <translation>Bin:</translation>
    </message>
    <message>
        <source>Endpoint:</source>
        <translation>Punto de conexión:</translation>
    </message>
    <message>
        <source>Region:</source>
        <translation>Región:</translation>
    </message>
    <message>
        <source>Bucket:</source>
        <translation>Bucket:</translation>
    </message>
    <message>
        <source>Failed.</source>
        <translation>Falló.</translation>
    </message>
</context>
<context>
    <name>nubo::XcbConnection</name>
    <message>
        <source>The X display stores pixels at a depth of %1 bits (%2 bits a pixel), which Nubo Shot cannot read; it reads depths 15, 16, 24, 30 and 32.</source>
        <translation>La pantalla X guarda los píxeles con una profundidad de %1 bits (%2 bits por píxel), que Nubo Shot no puede leer; lee las profundidades 15, 16, 24, 30 y 32.</translation>
    </message>
    <message>
        <source>There is not enough memory to read the screen.</source>
        <translation>No hay memoria suficiente para leer la pantalla.</translation>
    </message>
    <message>
        <source>The X server sent %1 bytes of pixels where %2 were asked for.</source>
        <translation>El servidor X envió %1 bytes de píxeles en lugar de los %2 pedidos.</translation>
    </message>
    <message>
        <source>The screen could not be read: %1.</source>
        <translation>No se pudo leer la pantalla: %1.</translation>
    </message>
</context>
<context>
    <name>nubo::XcbGlobalShortcuts</name>
    <message>
        <source>The shortcut %1 is not on this keyboard.</source>
        <translation>El atajo %1 no existe en este teclado.</translation>
    </message>
    <message>
        <source>The shortcut %1 is used by another program.</source>
        <translation>Otro programa usa el atajo %1.</translation>
    </message>
</context>
</TS>
