<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_BR">
<context>
    <name>nubo::BackupSettingsPage</name>
    <message>
        <source>Settings file</source>
        <translation>Arquivo de configurações</translation>
    </message>
    <message>
        <source>Back Up Settings…</source>
        <translation>Fazer backup das configurações…</translation>
    </message>
    <message>
        <source>Restore Settings…</source>
        <translation>Restaurar configurações…</translation>
    </message>
    <message>
        <source>Back Up Settings</source>
        <translation>Fazer backup das configurações</translation>
    </message>
    <message>
        <source>Settings backups (*.json)</source>
        <translation>Backups de configurações (*.json)</translation>
    </message>
    <message>
        <source>Restore Settings</source>
        <translation>Restaurar configurações</translation>
    </message>
    <message>
        <source>Settings backups (*.json);;All files (*)</source>
        <translation>Backups de configurações (*.json);;Todos os arquivos (*)</translation>
    </message>
    <message>
        <source>Settings backed up to “%1”.</source>
        <translation>Configurações salvas em “%1”.</translation>
    </message>
    <message>
        <source>Every preference goes into one file you can keep or take to another computer. Passwords and keys never do: they stay in the desktop&apos;s keyring.</source>
        <translation>Todas as preferências vão para um arquivo que você pode guardar ou levar para outro computador. Senhas e chaves nunca: elas ficam no chaveiro da área de trabalho.</translation>
    </message>
</context>
<context>
    <name>nubo::CameraStreamSource</name>
    <message>
        <source>The camera “%1” is not connected.</source>
        <translation>A câmera “%1” não está conectada.</translation>
    </message>
    <message>
        <source>The camera “%1” cannot be opened: %2.</source>
        <translation>Não é possível abrir a câmera “%1”: %2.</translation>
    </message>
    <message>
        <source>The camera “%1” gives no pictures: %2.</source>
        <translation>A câmera “%1” não fornece imagens: %2.</translation>
    </message>
    <message>
        <source>The camera “%1” gives no pictures that can be read.</source>
        <translation>A câmera “%1” não fornece imagens legíveis.</translation>
    </message>
    <message>
        <source>The camera&apos;s pictures (%1) cannot be decoded: %2.</source>
        <translation>Não é possível decodificar as imagens da câmera (%1): %2.</translation>
    </message>
    <message>
        <source>The camera stopped: %1.</source>
        <translation>A câmera parou: %1.</translation>
    </message>
</context>
<context>
    <name>nubo::CapturePlatformLoader</name>
    <message>
        <source>No X display to capture: DISPLAY is not set.</source>
        <translation>Nenhuma tela X para capturar: DISPLAY não está definida.</translation>
    </message>
    <message>
        <source>The X display “%1” (DISPLAY) cannot be reached.</source>
        <translation>Não é possível acessar a tela X “%1” (DISPLAY).</translation>
    </message>
    <message>
        <source>This Wayland desktop has no screen-cast portal to capture through: install the desktop&apos;s portal backend (xdg-desktop-portal-gnome, -kde or -wlr) and log in again.</source>
        <translation>Esta área de trabalho Wayland não tem um portal de transmissão de tela para capturar: instale o backend de portal da área de trabalho (xdg-desktop-portal-gnome, -kde ou -wlr) e entre na sessão de novo.</translation>
    </message>
    <message>
        <source>There is no capture backend “%1” (%2); this build has: %3.</source>
        <translation>Não existe o backend de captura “%1” (%2); esta compilação tem: %3.</translation>
    </message>
    <message>
        <source>No display to capture: neither DISPLAY nor WAYLAND_DISPLAY is set.</source>
        <translation>Nenhuma tela para capturar: nem DISPLAY nem WAYLAND_DISPLAY estão definidas.</translation>
    </message>
</context>
<context>
    <name>nubo::CaptureTypes</name>
    <message>
        <source>Screen Recording permission is required.</source>
        <translation>É necessária a permissão de gravação de tela.</translation>
    </message>
    <message>
        <source>Capture was cancelled.</source>
        <translation>A captura foi cancelada.</translation>
    </message>
    <message>
        <source>No screen content is available.</source>
        <translation>Nenhum conteúdo de tela disponível.</translation>
    </message>
</context>
<context>
    <name>nubo::EditorSettingsPage</name>
    <message>
        <source>Tools</source>
        <translation>Ferramentas</translation>
    </message>
    <message>
        <source>Return to Select after drawing</source>
        <translation>Voltar para Selecionar depois de desenhar</translation>
    </message>
    <message>
        <source>Colour and size of new marks</source>
        <translation>Cor e tamanho das novas marcações</translation>
    </message>
    <message>
        <source>Colour…</source>
        <translation>Cor…</translation>
    </message>
    <message>
        <source> pt</source>
        <translation> pt</translation>
    </message>
    <message>
        <source>Blur / Censor</source>
        <translation>Desfocar / Censurar</translation>
    </message>
    <message>
        <source>%1 Colour</source>
        <translation>Cor: %1</translation>
    </message>
    <message>
        <source>Draw and Number stay active, for one stroke or number after another.</source>
        <translation>Desenhar e Número continuam ativos, para um traço ou número após o outro.</translation>
    </message>
    <message>
        <source>The size of the blocks the hidden area is shown in: larger blocks show less.</source>
        <translation>O tamanho dos blocos em que a área oculta aparece: blocos maiores mostram menos.</translation>
    </message>
    <message>
        <source>Strength:</source>
        <translation>Intensidade:</translation>
    </message>
    <message>
        <source>Text in shots</source>
        <translation>Texto nas capturas</translation>
    </message>
    <message>
        <source>Languages:</source>
        <translation>Idiomas:</translation>
    </message>
    <message>
        <source>Copy Text and Capture Text read these. With none ticked, the desktop&apos;s language and English. More come with the packages tesseract-ocr-LANGUAGE.</source>
        <translation>“Copiar texto” e “Capturar texto” leem estes idiomas. Sem nenhum marcado, o idioma da área de trabalho e o inglês. Outros vêm com os pacotes tesseract-ocr-IDIOMA.</translation>
    </message>
</context>
<context>
    <name>nubo::EmojiCatalog</name>
    <message>
        <source>Everyday</source>
        <translation>Do dia a dia</translation>
    </message>
    <message>
        <source>Only a few emoji are offered: %1 cannot be read (%2). Install the package unicode-data for all of them.</source>
        <translation>Só alguns emojis estão disponíveis: não foi possível ler %1 (%2). Instale o pacote unicode-data para ter todos.</translation>
    </message>
    <message>
        <source>Only a few emoji are offered: %1 lists none. Reinstall the package unicode-data.</source>
        <translation>Só alguns emojis estão disponíveis: %1 não lista nenhum. Reinstale o pacote unicode-data.</translation>
    </message>
</context>
<context>
    <name>nubo::GeneralSettingsPage</name>
    <message>
        <source>Start-up</source>
        <translation>Inicialização</translation>
    </message>
    <message>
        <source>Start Nubo Shot when I log in</source>
        <translation>Iniciar o Nubo Shot ao entrar na sessão</translation>
    </message>
    <message>
        <source>Shots</source>
        <translation>Capturas</translation>
    </message>
    <message>
        <source>Show Recent in menu</source>
        <translation>Mostrar Recentes no menu</translation>
    </message>
    <message>
        <source>Include the pointer</source>
        <translation>Incluir o ponteiro</translation>
    </message>
    <message>
        <source>Adjust the area before capturing</source>
        <translation>Ajustar a área antes de capturar</translation>
    </message>
    <message>
        <source>Also copy raw shot</source>
        <translation>Copiar também a captura original</translation>
    </message>
    <message>
        <source>On Wayland a program sees the clipboard only while one of its windows has the keyboard: images copied in other applications join Recent the next time you use Nubo Shot.</source>
        <translation>No Wayland, um programa só vê a área de transferência enquanto uma de suas janelas tem o foco do teclado: imagens copiadas em outros aplicativos entram em Recentes na próxima vez que você usar o Nubo Shot.</translation>
    </message>
    <message>
        <source>A dragged area keeps its handles: move it with the arrow keys, resize it with Alt and the arrow keys, and press Return or double-click it to capture.</source>
        <translation>Uma área arrastada mantém as alças: mova-a com as setas, redimensione com Alt e as setas, e pressione Enter ou clique duas vezes para capturar.</translation>
    </message>
    <message>
        <source>Puts every capture on the clipboard at once, before anything is drawn on it.</source>
        <translation>Coloca cada captura na área de transferência na hora, antes de qualquer desenho.</translation>
    </message>
</context>
<context>
    <name>nubo::ImageWriter</name>
    <message>
        <source>Could not write “%1”: %2.</source>
        <translation>Não foi possível gravar “%1”: %2.</translation>
    </message>
</context>
<context>
    <name>nubo::LevelMeter</name>
    <message>
        <source>Microphone level</source>
        <translation>Nível do microfone</translation>
    </message>
</context>
<context>
    <name>nubo::OutputSettingsPage</name>
    <message>
        <source>Quick save</source>
        <translation>Salvamento rápido</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Escolher…</translation>
    </message>
    <message>
        <source>Use Downloads</source>
        <translation>Usar Downloads</translation>
    </message>
    <message>
        <source>Quick-Save Folder</source>
        <translation>Pasta de salvamento rápido</translation>
    </message>
    <message>
        <source>File names:</source>
        <translation>Nomes de arquivo:</translation>
    </message>
    <message>
        <source>Close the editor after</source>
        <translation>Fechar o editor depois de</translation>
    </message>
    <message>
        <source>Copying</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Saving</source>
        <translation>Salvar</translation>
    </message>
    <message>
        <source>Dragging out</source>
        <translation>Arrastar para fora</translation>
    </message>
    <message>
        <source>Hold Alt, or pin the editor, to keep it open once.</source>
        <translation>Segure Alt, ou fixe o editor, para mantê-lo aberto uma vez.</translation>
    </message>
    <message>
        <source>No folder chosen: shots go to Downloads.</source>
        <translation>Nenhuma pasta escolhida: as capturas vão para Downloads.</translation>
    </message>
    <message>
        <source>A second shot in the same second gets “ (2)”, and so on: no file is ever replaced.</source>
        <translation>Uma segunda captura no mesmo segundo recebe “ (2)”, e assim por diante: nenhum arquivo é substituído.</translation>
    </message>
    <message>
        <source>“%1” is missing or cannot be written to: shots go to Downloads until it is back.</source>
        <translation>“%1” não existe ou não pode ser gravada: as capturas vão para Downloads até que ela volte.</translation>
    </message>
    <message>
        <source>Folder:</source>
        <translation>Pasta:</translation>
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
        <translation>O que o Nubo Shot pode usar</translation>
    </message>
    <message>
        <source>Screen capture</source>
        <translation>Captura de tela</translation>
    </message>
    <message>
        <source>Forget Grant</source>
        <translation>Esquecer permissão</translation>
    </message>
    <message>
        <source>The desktop asks again at the next capture</source>
        <translation>A área de trabalho pergunta de novo na próxima captura</translation>
    </message>
    <message>
        <source>Global shortcuts</source>
        <translation>Atalhos globais</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>Microfone</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Câmera</translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation>Notificações</translation>
    </message>
    <message>
        <source>Keyring</source>
        <translation>Chaveiro</translation>
    </message>
    <message>
        <source>Check Again</source>
        <translation>Verificar de novo</translation>
    </message>
    <message>
        <source>Allowed: this X11 desktop lets programs read the screen.</source>
        <translation>Permitido: esta área de trabalho X11 deixa os programas lerem a tela.</translation>
    </message>
    <message>
        <source>Available through the sound server.</source>
        <translation>Disponível pelo servidor de som.</translation>
    </message>
    <message>
        <source>Available: %1.</source>
        <translation>Disponível: %1.</translation>
    </message>
    <message>
        <source>Shown by the desktop&apos;s notification service.</source>
        <translation>Exibidas pelo serviço de notificações da área de trabalho.</translation>
    </message>
    <message>
        <source>Granted through the desktop&apos;s screen-sharing dialog; captures do not ask again.</source>
        <translation>Concedida pelo diálogo de compartilhamento de tela da área de trabalho; as capturas não perguntam de novo.</translation>
    </message>
    <message>
        <source>Not yet granted: the desktop shows its screen-sharing dialog at the next capture. Choose every screen and allow it to be remembered.</source>
        <translation>Ainda não concedida: a área de trabalho mostra o diálogo de compartilhamento de tela na próxima captura. Escolha todas as telas e permita que a escolha seja lembrada.</translation>
    </message>
    <message>
        <source>Bound: the keys on the Shortcuts page work wherever the focus is.</source>
        <translation>Vinculados: as teclas da página Atalhos funcionam onde quer que esteja o foco.</translation>
    </message>
    <message>
        <source>This desktop gives programs no global keys: bind the commands of the Shortcuts page in the desktop&apos;s keyboard settings.</source>
        <translation>Esta área de trabalho não oferece teclas globais aos programas: vincule os comandos da página Atalhos nas configurações de teclado da área de trabalho.</translation>
    </message>
    <message>
        <source>No camera can be opened: connect one, and make sure your user is in the “video” group.</source>
        <translation>Nenhuma câmera pode ser aberta: conecte uma e verifique se seu usuário está no grupo “video”.</translation>
    </message>
    <message numerus="yes">
        <source>Available: %1 and %n more.</source>
        <translation>
            <numerusform>Disponível: %1 e mais %n.</numerusform>
            <numerusform>Disponível: %1 e mais %n.</numerusform>
        </translation>
    </message>
    <message>
        <source>No notification service: messages appear as the tray icon&apos;s bubbles instead.</source>
        <translation>Nenhum serviço de notificações: as mensagens aparecem como balões do ícone da bandeja.</translation>
    </message>
    <message>
        <source>The desktop&apos;s keyring (Secret Service) keeps upload secrets.</source>
        <translation>O chaveiro da área de trabalho (Secret Service) guarda os segredos de envio.</translation>
    </message>
    <message>
        <source>No keyring: install gnome-keyring (or a password manager offering the Secret Service) to store upload secrets.</source>
        <translation>Nenhum chaveiro: instale o gnome-keyring (ou um gerenciador de senhas com Secret Service) para guardar os segredos de envio.</translation>
    </message>
</context>
<context>
    <name>nubo::PortalRequest</name>
    <message>
        <source>There is no session bus to reach the desktop portal.</source>
        <translation>Não há barramento de sessão para acessar o portal da área de trabalho.</translation>
    </message>
    <message>
        <source>The desktop portal did not answer %1 within %2 s.</source>
        <translation>O portal da área de trabalho não respondeu a %1 em %2 s.</translation>
    </message>
</context>
<context>
    <name>nubo::PortalScreenCast</name>
    <message>
        <source>The desktop portal offers no screen casting (org.freedesktop.portal.ScreenCast).</source>
        <translation>O portal da área de trabalho não oferece transmissão de tela (org.freedesktop.portal.ScreenCast).</translation>
    </message>
    <message>
        <source>The desktop portal made no screen-cast session.</source>
        <translation>O portal da área de trabalho não criou sessão de transmissão.</translation>
    </message>
    <message>
        <source>The desktop portal gave no PipeWire connection.</source>
        <translation>O portal da área de trabalho não forneceu conexão PipeWire.</translation>
    </message>
</context>
<context>
    <name>nubo::PulseAudioCapture</name>
    <message>
        <source>The audio server cannot be reached: no event loop.</source>
        <translation>Não é possível acessar o servidor de áudio: sem laço de eventos.</translation>
    </message>
    <message>
        <source>No audio server answers.</source>
        <translation>Nenhum servidor de áudio responde.</translation>
    </message>
    <message>
        <source>No audio server answers: %1.</source>
        <translation>Nenhum servidor de áudio responde: %1.</translation>
    </message>
    <message>
        <source>No audio server answers: it did not reply in time.</source>
        <translation>Nenhum servidor de áudio responde: ele não respondeu a tempo.</translation>
    </message>
    <message>
        <source>The audio server did not answer: %1.</source>
        <translation>O servidor de áudio não respondeu: %1.</translation>
    </message>
    <message>
        <source>No sound server answers: install PipeWire (pipewire-pulse) or PulseAudio and log in again.</source>
        <translation>Nenhum servidor de som responde: instale o PipeWire (pipewire-pulse) ou o PulseAudio e entre na sessão de novo.</translation>
    </message>
    <message>
        <source>The audio source “%1” cannot be recorded: %2.</source>
        <translation>Não é possível gravar a fonte de áudio “%1”: %2.</translation>
    </message>
    <message>
        <source>The audio server has no sound output to record.</source>
        <translation>O servidor de áudio não tem saída de som para gravar.</translation>
    </message>
    <message>
        <source>The audio server has no microphone to record.</source>
        <translation>O servidor de áudio não tem microfone para gravar.</translation>
    </message>
</context>
<context>
    <name>nubo::RecordingSession</name>
    <message>
        <source>The folder “%1” cannot be created.</source>
        <translation>Não é possível criar a pasta “%1”.</translation>
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
        <translation>Taxa de quadros:</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Som</translation>
    </message>
    <message>
        <source>In the recording</source>
        <translation>Na gravação</translation>
    </message>
    <message>
        <source>Show the pointer</source>
        <translation>Mostrar o ponteiro</translation>
    </message>
    <message>
        <source>Highlight clicks</source>
        <translation>Destacar os cliques</translation>
    </message>
    <message>
        <source>Camera bubble</source>
        <translation>Bolha da câmera</translation>
    </message>
    <message>
        <source>Count down 3 seconds before recording</source>
        <translation>Contagem regressiva de 3 segundos antes de gravar</translation>
    </message>
    <message>
        <source>Saving</source>
        <translation>Salvamento</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Escolher…</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Padrão</translation>
    </message>
    <message>
        <source>Recordings folder:</source>
        <translation>Pasta de gravações:</translation>
    </message>
    <message>
        <source>Recordings Folder</source>
        <translation>Pasta de gravações</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Atalho</translation>
    </message>
    <message>
        <source>Starts a recording, and stops the one under way.</source>
        <translation>Inicia uma gravação e para a que estiver em andamento.</translation>
    </message>
    <message>
        <source> (default)</source>
        <translation> (padrão)</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>Formato:</translation>
    </message>
    <message>
        <source>Resolution:</source>
        <translation>Resolução:</translation>
    </message>
    <message>
        <source>Microphone:</source>
        <translation>Microfone:</translation>
    </message>
    <message>
        <source>Camera:</source>
        <translation>Câmera:</translation>
    </message>
</context>
<context>
    <name>nubo::RecordingTypes</name>
    <message>
        <source>The media encoder could not accept recording data.</source>
        <translation>O codificador não pôde aceitar os dados da gravação.</translation>
    </message>
    <message>
        <source>The recording could not be saved. </source>
        <translation>Não foi possível salvar a gravação. </translation>
    </message>
    <message>
        <source>Microphone recording requires a running audio server.</source>
        <translation>Gravar o microfone requer um servidor de áudio em execução.</translation>
    </message>
    <message>
        <source>Click highlighting requires the X Input extension.</source>
        <translation>Destacar cliques requer a extensão X Input.</translation>
    </message>
    <message>
        <source>The selected recording codec is unavailable.</source>
        <translation>O codec de gravação escolhido não está disponível.</translation>
    </message>
    <message>
        <source>The recording cannot perform this action right now.</source>
        <translation>A gravação não pode fazer isso agora.</translation>
    </message>
    <message>
        <source>No video frames were recorded.</source>
        <translation>Nenhum quadro de vídeo foi gravado.</translation>
    </message>
    <message>
        <source>Recording audio could not be processed.</source>
        <translation>Não foi possível processar o áudio da gravação.</translation>
    </message>
</context>
<context>
    <name>nubo::S3Signing</name>
    <message>
        <source>The S3 endpoint “%1” is not an http or https address.</source>
        <translation>O endpoint S3 “%1” não é um endereço http ou https.</translation>
    </message>
</context>
<context>
    <name>nubo::ShortcutsSettingsPage</name>
    <message>
        <source>Capture and record from anywhere</source>
        <translation>Capturar e gravar de qualquer lugar</translation>
    </message>
    <message>
        <source>Reset to Defaults</source>
        <translation>Restaurar padrões</translation>
    </message>
    <message>
        <source>Bind keys in the desktop&apos;s settings</source>
        <translation>Vincular teclas nas configurações da área de trabalho</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Copy the command</source>
        <translation>Copiar o comando</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Copiado</translation>
    </message>
    <message>
        <source>This desktop offers no global shortcuts: they are kept for when it does.</source>
        <translation>Esta área de trabalho não oferece atalhos globais: eles ficam guardados para quando oferecer.</translation>
    </message>
    <message>
        <source>Add a custom shortcut in the desktop&apos;s keyboard settings (GNOME: Settings → Keyboard → Custom Shortcuts; KDE: System Settings → Shortcuts; sway: a bindsym line) that runs the command.</source>
        <translation>Adicione um atalho personalizado nas configurações de teclado da área de trabalho (GNOME: Configurações → Teclado → Atalhos personalizados; KDE: Configurações do sistema → Atalhos; sway: uma linha bindsym) que execute o comando.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotApplications</name>
    <message>
        <source>%1 could not be started: %2.</source>
        <translation>Não foi possível iniciar %1: %2.</translation>
    </message>
    <message>
        <source>%1 cannot be started: its desktop entry %2 has an Exec line that cannot be read.</source>
        <translation>Não é possível iniciar %1: a entrada de área de trabalho %2 tem uma linha Exec ilegível.</translation>
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
        <translation>Copiar (Ctrl+C) · Segure Alt para manter aberto</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Salvar</translation>
    </message>
    <message>
        <source>Save to the quick-save folder (Ctrl+S) · Hold Alt to keep open</source>
        <translation>Salvar na pasta de salvamento rápido (Ctrl+S) · Segure Alt para manter aberto</translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>Salvar como…</translation>
    </message>
    <message>
        <source>Save As (Ctrl+Shift+S)</source>
        <translation>Salvar como (Ctrl+Shift+S)</translation>
    </message>
    <message>
        <source>Open With</source>
        <translation>Abrir com</translation>
    </message>
    <message>
        <source>Open the shot in another application</source>
        <translation>Abrir a captura em outro aplicativo</translation>
    </message>
    <message>
        <source>Upload to R2</source>
        <translation>Enviar para o R2</translation>
    </message>
    <message>
        <source>Upload to Filebin</source>
        <translation>Enviar para o Filebin</translation>
    </message>
    <message>
        <source>Cancel upload</source>
        <translation>Cancelar envio</translation>
    </message>
    <message>
        <source>Keep this editor open after copying, saving or dragging</source>
        <translation>Manter este editor aberto depois de copiar, salvar ou arrastar</translation>
    </message>
    <message>
        <source>%1 (Default)</source>
        <translation>%1 (padrão)</translation>
    </message>
    <message>
        <source>No application opens PNG images</source>
        <translation>Nenhum aplicativo abre imagens PNG</translation>
    </message>
    <message>
        <source>Other Application…</source>
        <translation>Outro aplicativo…</translation>
    </message>
    <message>
        <source>Set up a bucket on the Uploads page of the settings first</source>
        <translation>Configure primeiro um bucket na página Envios das configurações</translation>
    </message>
    <message>
        <source>Filebin</source>
        <translation>Filebin</translation>
    </message>
    <message>
        <source>Sending the shot to %1</source>
        <translation>Enviando a captura para %1</translation>
    </message>
    <message>
        <source>Upload the shot as PNG to %1; the link is copied</source>
        <translation>Enviar a captura como PNG para %1; o link é copiado</translation>
    </message>
    <message>
        <source>your bucket</source>
        <translation>seu bucket</translation>
    </message>
    <message>
        <source>Object key %1 · Click to copy it again · Set a public URL in the settings to get links</source>
        <translation>Chave do objeto %1 · Clique para copiá-la de novo · Defina uma URL pública nas configurações para obter links</translation>
    </message>
    <message>
        <source>%1 · Click to copy the link again</source>
        <translation>%1 · Clique para copiar o link de novo</translation>
    </message>
    <message>
        <source>%1 · Click to try again</source>
        <translation>%1 · Clique para tentar de novo</translation>
    </message>
    <message>
        <source>Keep Open</source>
        <translation>Manter aberto</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>Fixar</translation>
    </message>
    <message>
        <source>Pin the shot to the screen, above other windows (Ctrl+Shift+P)</source>
        <translation>Fixar a captura na tela, acima das outras janelas (Ctrl+Shift+P)</translation>
    </message>
</context>
<context>
    <name>nubo::ShotCameraBubble</name>
    <message>
        <source>No camera is available.</source>
        <translation>Nenhuma câmera disponível.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotCameraPreview</name>
    <message>
        <source>Drag to move the camera; scroll or drag its corner to resize it</source>
        <translation>Arraste para mover a câmera; role ou arraste o canto para redimensionar</translation>
    </message>
    <message>
        <source>Starting the camera…</source>
        <translation>Iniciando a câmera…</translation>
    </message>
</context>
<context>
    <name>nubo::ShotCaptureOverlay</name>
    <message>
        <source>Drag to capture · Esc: Cancel</source>
        <translation>Arraste para capturar · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Drag to capture · Space: Window · Esc: Cancel</source>
        <translation>Arraste para capturar · Espaço: Janela · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Click a window · Space: Area · Esc: Cancel</source>
        <translation>Clique em uma janela · Espaço: Área · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Drag to select scroll area · Esc: Cancel</source>
        <translation>Arraste para escolher a área de rolagem · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Drag</source>
        <translation>Arrastar</translation>
    </message>
    <message>
        <source>Frame the area to record</source>
        <translation>Enquadrar a área a gravar</translation>
    </message>
    <message>
        <source>Frame an area</source>
        <translation>Enquadrar uma área</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espaço</translation>
    </message>
    <message>
        <source>Pick a window instead</source>
        <translation>Escolher uma janela em vez disso</translation>
    </message>
    <message>
        <source>Click or F</source>
        <translation>Clique ou F</translation>
    </message>
    <message>
        <source>Record the whole screen</source>
        <translation>Gravar a tela inteira</translation>
    </message>
    <message>
        <source>Arrows</source>
        <translation>Setas</translation>
    </message>
    <message>
        <source>Move the area (Shift: 10 pt)</source>
        <translation>Mover a área (Shift: 10 pt)</translation>
    </message>
    <message>
        <source>Alt+Arrows</source>
        <translation>Alt+Setas</translation>
    </message>
    <message>
        <source>Resize the area</source>
        <translation>Redimensionar a área</translation>
    </message>
    <message>
        <source>Return, Double-Click</source>
        <translation>Enter, clique duplo</translation>
    </message>
    <message>
        <source>Record the area</source>
        <translation>Gravar a área</translation>
    </message>
    <message>
        <source>Capture the area</source>
        <translation>Capturar a área</translation>
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
        <translation>Clique aqui para ocultar isto de vez</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Teclas</translation>
    </message>
    <message>
        <source>Drag the area or its handles · Arrows: Move · Alt+Arrows: Resize · Shift: 10 pt · Return or Double-Click: Record · Esc: Cancel</source>
        <translation>Arraste a área ou as alças · Setas: Mover · Alt+Setas: Redimensionar · Shift: 10 pt · Enter ou clique duplo: Gravar · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Drag the area or its handles · Arrows: Move · Alt+Arrows: Resize · Shift: 10 pt · Return or Double-Click: Capture · Esc: Cancel</source>
        <translation>Arraste a área ou as alças · Setas: Mover · Alt+Setas: Redimensionar · Shift: 10 pt · Enter ou clique duplo: Capturar · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Drag an area to record · Click or F: Whole Screen · Space: Pick a Window · Esc: Cancel</source>
        <translation>Arraste uma área para gravar · Clique ou F: Tela inteira · Espaço: Escolher uma janela · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Drag to capture · Space: Pick a Window · Esc: Cancel</source>
        <translation>Arraste para capturar · Espaço: Escolher uma janela · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Drag an area to record · Click or F: Whole Screen · Esc: Cancel</source>
        <translation>Arraste uma área para gravar · Clique ou F: Tela inteira · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Drag an area to record · Click or F: Whole Screen · Space: Window · Esc: Cancel</source>
        <translation>Arraste uma área para gravar · Clique ou F: Tela inteira · Espaço: Janela · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Click a window to record · Space: Area · F: Whole Screen · Esc: Cancel</source>
        <translation>Clique em uma janela para gravar · Espaço: Área · F: Tela inteira · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Drag to select scroll area, scroll it to its end, then choose Capture Scrolling again · Esc: Cancel</source>
        <translation>Arraste para escolher a área de rolagem, role até o fim e escolha Capturar com rolagem de novo · Esc: Cancelar</translation>
    </message>
    <message>
        <source>P</source>
        <translation>P</translation>
    </message>
    <message>
        <source>Pin it to the screen</source>
        <translation>Fixar na tela</translation>
    </message>
</context>
<context>
    <name>nubo::ShotClipboard</name>
    <message>
        <source>The screenshot could not be put on the clipboard. %1</source>
        <translation>Não foi possível colocar a captura na área de transferência. %1</translation>
    </message>
</context>
<context>
    <name>nubo::ShotCropBar</name>
    <message>
        <source>Free</source>
        <translation>Livre</translation>
    </message>
    <message>
        <source>Square</source>
        <translation>Quadrado</translation>
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
        <translation>Largura</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Altura</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Concluído</translation>
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
        <translation>Não há memória suficiente para uma imagem de %1 × %2 pixels.</translation>
    </message>
    <message>
        <source>An image of the shot is missing (there may not have been enough memory for it).</source>
        <translation>Falta uma imagem da captura (pode não ter havido memória suficiente).</translation>
    </message>
    <message>
        <source>An image of %1 × %2 pixels is too large: Nubo Shot takes images of up to %L3 pixels, none wider or taller than %L4.</source>
        <translation>Uma imagem de %1 × %2 pixels é grande demais: o Nubo Shot aceita imagens de até %L3 pixels, nenhuma mais larga ou mais alta que %L4.</translation>
    </message>
    <message>
        <source>The images of this shot would hold %L1 pixels together; a shot holds at most %L2.</source>
        <translation>As imagens desta captura somariam %L1 pixels; uma captura comporta no máximo %L2.</translation>
    </message>
    <message>
        <source>The shot would be %L1 × %L2 points; it may be at most %L3 points wide and tall.</source>
        <translation>A captura teria %L1 × %L2 pontos; ela pode ter no máximo %L3 pontos de largura e de altura.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotDragHandle</name>
    <message>
        <source>Drag Me</source>
        <translation>Arraste-me</translation>
    </message>
    <message>
        <source>Drag PNG · Hold Alt at drop to keep open</source>
        <translation>Arrastar PNG · Segure Alt ao soltar para manter aberto</translation>
    </message>
</context>
<context>
    <name>nubo::ShotEditorModel</name>
    <message>
        <source>There is not enough memory to add an image of %1 × %2 pixels.</source>
        <translation>Não há memória suficiente para adicionar uma imagem de %1 × %2 pixels.</translation>
    </message>
    <message>
        <source>There is no image to add (it could not be read, or it is larger than Nubo Shot takes).</source>
        <translation>Não há imagem para adicionar (não foi possível lê-la, ou ela é maior do que o Nubo Shot aceita).</translation>
    </message>
</context>
<context>
    <name>nubo::ShotEditorWindow</name>
    <message>
        <source>Tools</source>
        <translation>Ferramentas</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Saída</translation>
    </message>
    <message>
        <source>Width %1 pt</source>
        <translation>Largura %1 pt</translation>
    </message>
    <message>
        <source>Size %1 pt</source>
        <translation>Tamanho %1 pt</translation>
    </message>
    <message>
        <source>Strength %1</source>
        <translation>Intensidade %1</translation>
    </message>
    <message>
        <source>A text holds at most %L1 characters.</source>
        <translation>Um texto comporta no máximo %L1 caracteres.</translation>
    </message>
    <message>
        <source>Add Image</source>
        <translation>Adicionar imagem</translation>
    </message>
    <message>
        <source>Images (*.png *.jpg *.jpeg *.webp *.bmp *.gif)</source>
        <translation>Imagens (*.png *.jpg *.jpeg *.webp *.bmp *.gif)</translation>
    </message>
    <message>
        <source>Could Not Add Image</source>
        <translation>Não foi possível adicionar a imagem</translation>
    </message>
    <message>
        <source>Select annotations to cut them</source>
        <translation>Selecione anotações para recortá-las</translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation>Roda</translation>
    </message>
    <message>
        <source>Size of the tool</source>
        <translation>Tamanho da ferramenta</translation>
    </message>
    <message>
        <source>Space+Drag</source>
        <translation>Espaço+Arrastar</translation>
    </message>
    <message>
        <source>Move around the shot</source>
        <translation>Mover-se pela captura</translation>
    </message>
    <message>
        <source>Arrows</source>
        <translation>Setas</translation>
    </message>
    <message>
        <source>Move the selection</source>
        <translation>Mover a seleção</translation>
    </message>
    <message>
        <source>Ctrl+Z, Ctrl+Shift+Z</source>
        <translation>Ctrl+Z, Ctrl+Shift+Z</translation>
    </message>
    <message>
        <source>Undo, Redo</source>
        <translation>Desfazer, Refazer</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Ctrl+C</translation>
    </message>
    <message>
        <source>Copy the shot</source>
        <translation>Copiar a captura</translation>
    </message>
    <message>
        <source>Ctrl+S</source>
        <translation>Ctrl+S</translation>
    </message>
    <message>
        <source>Save the shot</source>
        <translation>Salvar a captura</translation>
    </message>
    <message>
        <source>Ctrl+Shift+S</source>
        <translation>Ctrl+Shift+S</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Salvar como</translation>
    </message>
    <message>
        <source>Ctrl+1, Ctrl+9</source>
        <translation>Ctrl+1, Ctrl+9</translation>
    </message>
    <message>
        <source>Actual size, Fit</source>
        <translation>Tamanho real, Ajustar</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Deselect, then close</source>
        <translation>Desmarcar e depois fechar</translation>
    </message>
    <message>
        <source>Discard this screenshot?</source>
        <translation>Descartar esta captura?</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Salvar</translation>
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
        <translation>Clique aqui para ocultar isto de vez</translation>
    </message>
    <message>
        <source>Your changes to this screenshot have not been copied or saved.</source>
        <translation>Suas alterações nesta captura não foram copiadas nem salvas.</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Desfazer</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Refazer</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fechar</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Selecionar tudo</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Excluir</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Copy and Keep Open</source>
        <translation>Copiar e manter aberto</translation>
    </message>
    <message>
        <source>Save and Keep Open</source>
        <translation>Salvar e manter aberto</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Recortar</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Colar</translation>
    </message>
    <message>
        <source>Bring Forward</source>
        <translation>Trazer para frente</translation>
    </message>
    <message>
        <source>Send Backward</source>
        <translation>Enviar para trás</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Ampliar</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Reduzir</translation>
    </message>
    <message>
        <source>Actual Size</source>
        <translation>Tamanho real</translation>
    </message>
    <message>
        <source>Fit in Window</source>
        <translation>Ajustar à janela</translation>
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
        <translation>Copiar o texto da captura ou as palavras escolhidas (Ctrl+Shift+C)</translation>
    </message>
    <message>
        <source>Hide Sensitive Text…</source>
        <translation>Ocultar texto sensível…</translation>
    </message>
    <message>
        <source>Pixelate e-mail addresses, phone numbers, keys and the like (Ctrl+Shift+H)</source>
        <translation>Pixelizar endereços de e-mail, telefones, chaves e afins (Ctrl+Shift+H)</translation>
    </message>
    <message>
        <source>Reading the text…</source>
        <translation>Lendo o texto…</translation>
    </message>
    <message>
        <source>No text found in this shot</source>
        <translation>Nenhum texto encontrado nesta captura</translation>
    </message>
    <message numerus="yes">
        <source>Copied %n word(s)</source>
        <translation>
            <numerusform>%n palavra copiada</numerusform>
            <numerusform>%n palavras copiadas</numerusform>
        </translation>
    </message>
    <message>
        <source>No sensitive text found</source>
        <translation>Nenhum texto sensível encontrado</translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) hidden</source>
        <translation>
            <numerusform>%n item ocultado</numerusform>
            <numerusform>%n itens ocultados</numerusform>
        </translation>
    </message>
    <message>
        <source>Ctrl+Shift+C</source>
        <translation>Ctrl+Shift+C</translation>
    </message>
    <message>
        <source>Copy the text</source>
        <translation>Copiar o texto</translation>
    </message>
    <message>
        <source>Pin to Screen</source>
        <translation>Fixar na tela</translation>
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
        <translation>Usados recentemente</translation>
    </message>
    <message>
        <source>No emoji is called “%1”.</source>
        <translation>Nenhum emoji se chama “%1”.</translation>
    </message>
    <message>
        <source>Emoji you place show here.</source>
        <translation>Os emojis que você colocar aparecem aqui.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotFeature</name>
    <message>
        <source>Could Not Copy Screenshot</source>
        <translation>Não foi possível copiar a captura</translation>
    </message>
    <message>
        <source>%1 is not available yet.</source>
        <translation>%1 ainda não está disponível.</translation>
    </message>
    <message>
        <source>Could Not Capture Screen</source>
        <translation>Não foi possível capturar a tela</translation>
    </message>
    <message>
        <source>Could Not Open Recent Image</source>
        <translation>Não foi possível abrir a imagem recente</translation>
    </message>
    <message>
        <source>Could Not Open Screenshot</source>
        <translation>Não foi possível abrir a captura de tela</translation>
    </message>
    <message>
        <source>Could Not Read Text</source>
        <translation>Não foi possível ler o texto</translation>
    </message>
    <message>
        <source>No Text Found</source>
        <translation>Nenhum texto encontrado</translation>
    </message>
    <message>
        <source>No text could be read in the framed area.</source>
        <translation>Nenhum texto pôde ser lido na área escolhida.</translation>
    </message>
    <message>
        <source>Open in Editor</source>
        <translation>Abrir no editor</translation>
    </message>
    <message numerus="yes">
        <source>Copied %n word(s)</source>
        <translation>
            <numerusform>%n palavra copiada</numerusform>
            <numerusform>%n palavras copiadas</numerusform>
        </translation>
    </message>
    <message>
        <source>No area has been captured yet. Frame one with Capture Area first.</source>
        <translation>Nenhuma área foi capturada ainda. Escolha uma primeiro com “Capturar área”.</translation>
    </message>
    <message>
        <source>The display of the previous area is no longer connected.</source>
        <translation>A tela da área anterior não está mais conectada.</translation>
    </message>
    <message>
        <source>The display of the previous area changed its size (%1 × %2 pixels, now %3 × %4). Frame the area again.</source>
        <translation>A tela da área anterior mudou de tamanho (%1 × %2 pixels, agora %3 × %4). Escolha a área novamente.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotGlobalShortcuts</name>
    <message>
        <source>Record Screen</source>
        <translation>Gravar a tela</translation>
    </message>
    <message>
        <source>Capture Area</source>
        <translation>Capturar área</translation>
    </message>
    <message>
        <source>Capture Window</source>
        <translation>Capturar janela</translation>
    </message>
    <message>
        <source>Capture Fullscreen</source>
        <translation>Capturar tela inteira</translation>
    </message>
    <message>
        <source>Capture Scrolling</source>
        <translation>Capturar com rolagem</translation>
    </message>
    <message>
        <source>Global shortcuts are not available on this desktop.</source>
        <translation>Atalhos globais não estão disponíveis nesta área de trabalho.</translation>
    </message>
    <message>
        <source>Capture Text</source>
        <translation>Capturar texto</translation>
    </message>
    <message>
        <source>Capture Previous Area</source>
        <translation>Capturar a área anterior</translation>
    </message>
</context>
<context>
    <name>nubo::ShotImageFile</name>
    <message>
        <source>Could not read “%1”: %2.</source>
        <translation>Não foi possível ler “%1”: %2.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotNotifications</name>
    <message>
        <source>Saved to %1</source>
        <translation>Salva em %1</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Mostrar na pasta</translation>
    </message>
</context>
<context>
    <name>nubo::ShotOutputActions</name>
    <message>
        <source>Upload</source>
        <translation>Envio</translation>
    </message>
    <message>
        <source>Upload outcome unknown. Retry may create a duplicate upload.</source>
        <translation>Resultado do envio desconhecido. Tentar de novo pode criar um envio duplicado.</translation>
    </message>
    <message>
        <source>Retry upload</source>
        <translation>Tentar enviar de novo</translation>
    </message>
    <message>
        <source>Could Not Copy Screenshot</source>
        <translation>Não foi possível copiar a captura</translation>
    </message>
    <message>
        <source>Could Not Save Screenshot</source>
        <translation>Não foi possível salvar a captura</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Salvar como</translation>
    </message>
    <message>
        <source>Could Not Drag Screenshot</source>
        <translation>Não foi possível arrastar a captura</translation>
    </message>
    <message>
        <source>Could Not Open Screenshot</source>
        <translation>Não foi possível abrir a captura</translation>
    </message>
    <message>
        <source>Could Not Share Screenshot</source>
        <translation>Não foi possível compartilhar a captura</translation>
    </message>
    <message>
        <source>Copied %1</source>
        <translation>%1 copiado</translation>
    </message>
    <message>
        <source>Filebin is public: anyone with the link can see this shot.</source>
        <translation>O Filebin é público: qualquer pessoa com o link pode ver esta captura.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotPinWindow</name>
    <message>
        <source>Pinned Shot</source>
        <translation>Captura fixada</translation>
    </message>
    <message>
        <source>Drag to move · Wheel: Zoom · Ctrl+Wheel: Opacity · Double-Click or Esc: Close</source>
        <translation>Arraste para mover · Roda: zoom · Ctrl+roda: opacidade · Clique duplo ou Esc: fechar</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Salvar</translation>
    </message>
    <message>
        <source>Open in Editor</source>
        <translation>Abrir no editor</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Opacidade</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fechar</translation>
    </message>
</context>
<context>
    <name>nubo::ShotPins</name>
    <message>
        <source>Could Not Save Screenshot</source>
        <translation>Não foi possível salvar a captura</translation>
    </message>
    <message>
        <source>Pinned as a normal window</source>
        <translation>Fixada como janela normal</translation>
    </message>
    <message>
        <source>This desktop does not let Nubo Shot keep a pinned shot above other windows; it stays where the desktop puts it.</source>
        <translation>Este ambiente não deixa o Nubo Shot manter uma captura fixada acima das outras janelas; ela fica onde o ambiente a colocar.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingControlBar</name>
    <message>
        <source>Pause Recording</source>
        <translation>Pausar gravação</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>Parar gravação</translation>
    </message>
    <message>
        <source>Cancel Recording</source>
        <translation>Cancelar gravação</translation>
    </message>
    <message>
        <source>Resume Recording</source>
        <translation>Retomar gravação</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingControls</name>
    <message>
        <source>No camera is available.</source>
        <translation>Nenhuma câmera disponível.</translation>
    </message>
    <message>
        <source>System Audio</source>
        <translation>Áudio do sistema</translation>
    </message>
    <message>
        <source>Record what the computer plays</source>
        <translation>Gravar o que o computador toca</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>Microfone</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Câmera</translation>
    </message>
    <message>
        <source>Show your camera as a round bubble in the recording</source>
        <translation>Mostrar sua câmera como uma bolha redonda na gravação</translation>
    </message>
    <message>
        <source>Cursor</source>
        <translation>Cursor</translation>
    </message>
    <message>
        <source>Show the pointer in the recording</source>
        <translation>Mostrar o ponteiro na gravação</translation>
    </message>
    <message>
        <source>Clicks</source>
        <translation>Cliques</translation>
    </message>
    <message>
        <source>Ring every click in the recording</source>
        <translation>Marcar cada clique com um anel na gravação</translation>
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
        <translation>Padrão</translation>
    </message>
    <message>
        <source>Native</source>
        <translation>Nativa</translation>
    </message>
    <message>
        <source>One pixel a point: smaller files on HiDPI screens</source>
        <translation>Um pixel por ponto: arquivos menores em telas HiDPI</translation>
    </message>
    <message>
        <source>Every pixel of the screen</source>
        <translation>Cada pixel da tela</translation>
    </message>
    <message>
        <source>Default microphone</source>
        <translation>Microfone padrão</translation>
    </message>
    <message>
        <source>%1 (not connected)</source>
        <translation>%1 (não conectado)</translation>
    </message>
    <message>
        <source>HEVC needs a hardware video encoder (VAAPI or NVENC), and this computer has none.</source>
        <translation>O HEVC precisa de um codificador de vídeo por hardware (VAAPI ou NVENC), e este computador não tem nenhum.</translation>
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
        <translation>O Nubo Shot ainda não consegue gravar esta área de trabalho.</translation>
    </message>
    <message>
        <source>Could Not Record Screen</source>
        <translation>Não foi possível gravar a tela</translation>
    </message>
    <message>
        <source>window picked at the start</source>
        <translation>janela escolhida no início</translation>
    </message>
    <message>
        <source>Recording the screen</source>
        <translation>Gravando a tela</translation>
    </message>
    <message>
        <source>Recording saved</source>
        <translation>Gravação salva</translation>
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
        <translation>Parar pelo menu</translation>
    </message>
    <message>
        <source>Start Recording</source>
        <translation>Iniciar gravação</translation>
    </message>
    <message>
        <source>Start (Return)</source>
        <translation>Iniciar (Enter)</translation>
    </message>
    <message>
        <source>Or by the shortcut, or with “nuboshot capture recording”</source>
        <translation>Ou pelo atalho, ou com “nuboshot capture recording”</translation>
    </message>
</context>
<context>
    <name>nubo::ShotReviewTimeline</name>
    <message>
        <source>Blur %1</source>
        <translation>Desfoque %1</translation>
    </message>
</context>
<context>
    <name>nubo::ShotReviewWindow</name>
    <message>
        <source>%1 — Review</source>
        <translation>%1 — Revisão</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Reproduzir</translation>
    </message>
    <message>
        <source>Play or pause (Space)</source>
        <translation>Reproduzir ou pausar (Espaço)</translation>
    </message>
    <message>
        <source>Split</source>
        <translation>Dividir</translation>
    </message>
    <message>
        <source>Split at the playhead (S)</source>
        <translation>Dividir no cursor de reprodução (S)</translation>
    </message>
    <message>
        <source>Remove Segment</source>
        <translation>Remover segmento</translation>
    </message>
    <message>
        <source>Cut out the segment under the playhead (Delete)</source>
        <translation>Cortar o segmento sob o cursor de reprodução (Delete)</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>Desfocar</translation>
    </message>
    <message>
        <source>Drag over the picture to blur a region (B)</source>
        <translation>Arraste sobre a imagem para desfocar uma região (B)</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Recortar</translation>
    </message>
    <message>
        <source>Crop the picture (C)</source>
        <translation>Recortar a imagem (C)</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Silenciar</translation>
    </message>
    <message>
        <source>Export without sound (M)</source>
        <translation>Exportar sem som (M)</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Desfazer</translation>
    </message>
    <message>
        <source>Undo (Ctrl+Z)</source>
        <translation>Desfazer (Ctrl+Z)</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Refazer</translation>
    </message>
    <message>
        <source>Redo (Ctrl+Shift+Z)</source>
        <translation>Refazer (Ctrl+Shift+Z)</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Mostrar na pasta</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>Salvar como…</translation>
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
        <translation>%1 × %2 · cerca de %3</translation>
    </message>
    <message>
        <source>Save Edited Recording</source>
        <translation>Salvar a gravação editada</translation>
    </message>
    <message>
        <source>MPEG-4 movie (*.mp4)</source>
        <translation>Vídeo MPEG-4 (*.mp4)</translation>
    </message>
    <message>
        <source>Export cancelled</source>
        <translation>Exportação cancelada</translation>
    </message>
    <message>
        <source>Export failed</source>
        <translation>Falha na exportação</translation>
    </message>
    <message>
        <source>Export Failed</source>
        <translation>Falha na exportação</translation>
    </message>
    <message>
        <source>Discard Edits?</source>
        <translation>Descartar as edições?</translation>
    </message>
    <message>
        <source>Your edits to “%1” have not been exported.</source>
        <translation>Suas edições em “%1” não foram exportadas.</translation>
    </message>
    <message>
        <source>The recording itself stays as it is.</source>
        <translation>A gravação em si continua como está.</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Descartar</translation>
    </message>
    <message>
        <source>Copied “%1”</source>
        <translation>“%1” copiado</translation>
    </message>
    <message>
        <source>Exporting “%1”…</source>
        <translation>Exportando “%1”…</translation>
    </message>
    <message>
        <source>Exported “%1”</source>
        <translation>“%1” exportado</translation>
    </message>
    <message>
        <source>Export format and size</source>
        <translation>Formato e tamanho da exportação</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Formato</translation>
    </message>
    <message>
        <source>MP4 Movie</source>
        <translation>Filme MP4</translation>
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
        <translation>Quadros por segundo</translation>
    </message>
    <message>
        <source>%1 fps</source>
        <translation>%1 qps</translation>
    </message>
    <message>
        <source>Width · Never upscaled</source>
        <translation>Largura · Nunca ampliada</translation>
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
        <translation>%1 · %2 qps · %3 px</translation>
    </message>
    <message>
        <source>WebP</source>
        <translation>WebP</translation>
    </message>
    <message>
        <source>GIF animation (*.gif)</source>
        <translation>Animação GIF (*.gif)</translation>
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
        <translation>%1%</translation>
    </message>
    <message>
        <source>&amp;Quality:</source>
        <translation>&amp;Qualidade:</translation>
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
        <translation>Captura com rolagem</translation>
    </message>
    <message>
        <source>Return: Done · Esc: Cancel</source>
        <translation>Enter: Concluir · Esc: Cancelar</translation>
    </message>
    <message>
        <source>Auto-scroll</source>
        <translation>Rolagem automática</translation>
    </message>
    <message>
        <source>Scroll to the end by itself; any key or click stops</source>
        <translation>Rolar sozinho até o fim; qualquer tecla ou clique interrompe</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Concluído</translation>
    </message>
    <message>
        <source>Scroll down to the end, or use Auto-scroll.</source>
        <translation>Role até o fim ou use a Rolagem automática.</translation>
    </message>
    <message>
        <source>%1 px tall</source>
        <translation>%1 px de altura</translation>
    </message>
    <message>
        <source>Stop Auto-scroll</source>
        <translation>Parar a rolagem automática</translation>
    </message>
</context>
<context>
    <name>nubo::ShotScrollingSession</name>
    <message>
        <source>this desktop offers no region streams</source>
        <translation>esta área de trabalho não oferece fluxos de região</translation>
    </message>
    <message>
        <source>Auto-scroll is not available on this desktop: scroll by hand.</source>
        <translation>A rolagem automática não está disponível nesta área de trabalho: role manualmente.</translation>
    </message>
    <message>
        <source>Scroll back up a little</source>
        <translation>Role um pouco para cima</translation>
    </message>
    <message>
        <source>Auto-scrolling… Any key or click stops it.</source>
        <translation>Rolando automaticamente… Qualquer tecla ou clique interrompe.</translation>
    </message>
    <message>
        <source>Keep scrolling down; Done when you reach the end.</source>
        <translation>Continue rolando para baixo; Concluído quando chegar ao fim.</translation>
    </message>
    <message>
        <source>Reached the size limit.</source>
        <translation>Limite de tamanho atingido.</translation>
    </message>
    <message>
        <source>The scrolling capture reached its size limit and stopped at %1 pixels.</source>
        <translation>A captura com rolagem atingiu o limite de tamanho e parou em %1 pixels.</translation>
    </message>
    <message>
        <source>Auto-scroll stopped.</source>
        <translation>Rolagem automática interrompida.</translation>
    </message>
    <message>
        <source>Auto-scroll reached the end: press Done.</source>
        <translation>A rolagem automática chegou ao fim: pressione Concluído.</translation>
    </message>
    <message>
        <source>this desktop cannot scroll for us</source>
        <translation>esta área de trabalho não consegue rolar por nós</translation>
    </message>
    <message>
        <source>Auto-scroll could not start: %1.</source>
        <translation>Não foi possível iniciar a rolagem automática: %1.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotSensitiveTextDialog</name>
    <message>
        <source>E-mail address</source>
        <translation>Endereço de e-mail</translation>
    </message>
    <message>
        <source>Phone number</source>
        <translation>Número de telefone</translation>
    </message>
    <message>
        <source>IP address</source>
        <translation>Endereço IP</translation>
    </message>
    <message>
        <source>Card number</source>
        <translation>Número de cartão</translation>
    </message>
    <message>
        <source>Key or token</source>
        <translation>Chave ou token</translation>
    </message>
    <message>
        <source>Private key</source>
        <translation>Chave privada</translation>
    </message>
    <message>
        <source>Hide Sensitive Text</source>
        <translation>Ocultar texto sensível</translation>
    </message>
    <message>
        <source>The ticked text is pixelated. Untick what may stay readable.</source>
        <translation>O texto marcado é pixelizado. Desmarque o que pode continuar legível.</translation>
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
        <translation>não é uma configuração desta versão</translation>
    </message>
    <message>
        <source>not true or false</source>
        <translation>nem true nem false</translation>
    </message>
    <message>
        <source>not a text</source>
        <translation>não é um texto</translation>
    </message>
    <message>
        <source>not png, jpeg, heic or webp</source>
        <translation>não é png, jpeg, heic ou webp</translation>
    </message>
    <message>
        <source>not auto, r2 or filebin</source>
        <translation>não é auto, r2 ou filebin</translation>
    </message>
    <message>
        <source>not a capture of this version</source>
        <translation>não é uma captura desta versão</translation>
    </message>
    <message>
        <source>not a key</source>
        <translation>não é uma combinação de teclas</translation>
    </message>
    <message>
        <source>not a tool of this version</source>
        <translation>não é uma ferramenta desta versão</translation>
    </message>
    <message>
        <source>not a style</source>
        <translation>não é um estilo</translation>
    </message>
    <message>
        <source>not a plain value</source>
        <translation>não é um valor simples</translation>
    </message>
    <message>
        <source>no settings in it</source>
        <translation>nenhuma configuração nele</translation>
    </message>
    <message>
        <source>The file is not a Nubo Shot settings backup: nothing was restored.</source>
        <translation>O arquivo não é um backup de configurações do Nubo Shot: nada foi restaurado.</translation>
    </message>
    <message>
        <source>secrets are never restored from a file</source>
        <translation>segredos nunca são restaurados de um arquivo</translation>
    </message>
    <message>
        <source>“%1” is not a file.</source>
        <translation>“%1” não é um arquivo.</translation>
    </message>
    <message>
        <source>“%1” cannot be read: %2.</source>
        <translation>Não é possível ler “%1”: %2.</translation>
    </message>
    <message>
        <source> The backup comes from a newer Nubo Shot.</source>
        <translation> O backup vem de uma versão mais nova do Nubo Shot.</translation>
    </message>
    <message>
        <source> Skipped: </source>
        <translation> Ignorados: </translation>
    </message>
    <message>
        <source>The file is not a settings backup, or it is damaged (%1): nothing was restored.</source>
        <translation>O arquivo não é um backup de configurações ou está danificado (%1): nada foi restaurado.</translation>
    </message>
    <message>
        <source>“%1” is larger than any settings backup (over 1 MiB): nothing was restored.</source>
        <translation>“%1” é maior que qualquer backup de configurações (mais de 1 MiB): nada foi restaurado.</translation>
    </message>
    <message numerus="yes">
        <source>%n setting(s) restored.</source>
        <translation>
            <numerusform>%n configuração restaurada.</numerusform>
            <numerusform>%n configurações restauradas.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nubo::ShotSettingsPage</name>
    <message>
        <source>Backup</source>
        <translation>Backup</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>Editor</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Geral</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Saída</translation>
    </message>
    <message>
        <source>Permissions</source>
        <translation>Permissões</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Gravação</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Atalhos</translation>
    </message>
    <message>
        <source>Uploads</source>
        <translation>Envios</translation>
    </message>
</context>
<context>
    <name>nubo::ShotSettingsWindow</name>
    <message>
        <source>Nubo Shot Settings</source>
        <translation>Configurações do Nubo Shot</translation>
    </message>
</context>
<context>
    <name>nubo::ShotShare</name>
    <message>
        <source>The shot could not be prepared for sharing.</source>
        <translation>Não foi possível preparar a captura para compartilhar.</translation>
    </message>
    <message>
        <source>No application could be offered to open the shot.</source>
        <translation>Nenhum aplicativo pôde ser oferecido para abrir a captura.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotShortcutField</name>
    <message>
        <source>Click, then press the keys</source>
        <translation>Clique e pressione as teclas</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Desligado</translation>
    </message>
    <message>
        <source>No shortcut for this</source>
        <translation>Nenhum atalho para isto</translation>
    </message>
    <message>
        <source>%1 already does %2.</source>
        <translation>%1 já faz “%2”.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotStatusMenu</name>
    <message>
        <source>Record Screen</source>
        <translation>Gravar a tela</translation>
    </message>
    <message>
        <source>Record Window</source>
        <translation>Gravar janela</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>Parar gravação</translation>
    </message>
    <message>
        <source>Cancel Recording</source>
        <translation>Cancelar gravação</translation>
    </message>
    <message>
        <source>Open Image in Nubo Shot…</source>
        <translation>Abrir imagem no Nubo Shot…</translation>
    </message>
    <message>
        <source>Recent</source>
        <translation>Recentes</translation>
    </message>
    <message>
        <source>Recent Uploads…</source>
        <translation>Envios recentes…</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Configurações…</translation>
    </message>
    <message>
        <source>Quit Nubo Shot</source>
        <translation>Sair do Nubo Shot</translation>
    </message>
    <message>
        <source>Copied image</source>
        <translation>Imagem copiada</translation>
    </message>
    <message>
        <source>No recent images</source>
        <translation>Nenhuma imagem recente</translation>
    </message>
    <message>
        <source>Clear Recent</source>
        <translation>Limpar recentes</translation>
    </message>
    <message>
        <source>No windows to record</source>
        <translation>Nenhuma janela para gravar</translation>
    </message>
    <message>
        <source>Saving the recording…</source>
        <translation>Salvando a gravação…</translation>
    </message>
    <message>
        <source>Resume Recording</source>
        <translation>Retomar gravação</translation>
    </message>
    <message>
        <source>Pause Recording</source>
        <translation>Pausar gravação</translation>
    </message>
    <message>
        <source>d MMM, HH:mm</source>
        <translation>d &apos;de&apos; MMM, HH:mm</translation>
    </message>
    <message>
        <source>Delay</source>
        <translation>Atraso</translation>
    </message>
    <message>
        <source>No Delay</source>
        <translation>Sem atraso</translation>
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
        <translation>Fixadas</translation>
    </message>
    <message>
        <source>Close All Pins</source>
        <translation>Fechar todas as fixadas</translation>
    </message>
    <message>
        <source>Cancel Delayed Capture (%1 s)</source>
        <translation>Cancelar a captura com atraso (%1 s)</translation>
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
        <translation>Outra cor…</translation>
    </message>
    <message>
        <source>Other Colour</source>
        <translation>Outra cor</translation>
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
        <translation>Escolher o emoji</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Cor</translation>
    </message>
    <message>
        <source>Drag the frame or its handles; Return crops</source>
        <translation>Arraste a moldura ou as alças; Enter recorta</translation>
    </message>
    <message>
        <source>Click to copy a colour and use it for drawing</source>
        <translation>Clique para copiar uma cor e desenhar com ela</translation>
    </message>
    <message>
        <source>Click to select, drag to move; Shift adds to the selection</source>
        <translation>Clique para selecionar, arraste para mover; Shift adiciona à seleção</translation>
    </message>
    <message>
        <source>&amp;Width</source>
        <translation>&amp;Largura</translation>
    </message>
    <message>
        <source>&amp;Size</source>
        <translation>&amp;Tamanho</translation>
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
        <translation>Arraste sobre as palavras para escolhê-las; Ctrl+C as copia</translation>
    </message>
</context>
<context>
    <name>nubo::ShotTextLayer</name>
    <message>
        <source>No text found in this shot</source>
        <translation>Nenhum texto encontrado nesta captura</translation>
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
        <translation>Abrir link</translation>
    </message>
    <message>
        <source>No application opens this link</source>
        <translation>Nenhum aplicativo abre este link</translation>
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
        <translation>Adicionar imagem</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Selecionar</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Retângulo</translation>
    </message>
    <message>
        <source>Filled rectangle</source>
        <translation>Retângulo preenchido</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>Elipse</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Linha</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>Seta</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texto</translation>
    </message>
    <message>
        <source>Blur / Censor</source>
        <translation>Desfocar / Censurar</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Número</translation>
    </message>
    <message>
        <source>Draw</source>
        <translation>Desenhar</translation>
    </message>
    <message>
        <source>Highlighter</source>
        <translation>Marca-texto</translation>
    </message>
    <message>
        <source>Emoji</source>
        <translation>Emoji</translation>
    </message>
    <message>
        <source>Pick color</source>
        <translation>Conta-gotas</translation>
    </message>
    <message>
        <source>Select text</source>
        <translation>Selecionar texto</translation>
    </message>
</context>
<context>
    <name>nubo::ShotUpload</name>
    <message>
        <source>Upload to Filebin</source>
        <translation>Enviar para o Filebin</translation>
    </message>
    <message>
        <source>Uploading… %1%</source>
        <translation>Enviando… %1%</translation>
    </message>
    <message>
        <source>Uploading…</source>
        <translation>Enviando…</translation>
    </message>
    <message>
        <source>Upload complete · Link copied</source>
        <translation>Envio concluído · Link copiado</translation>
    </message>
    <message>
        <source>Upload complete · Key copied</source>
        <translation>Envio concluído · Chave copiada</translation>
    </message>
    <message>
        <source>Upload failed · Retry</source>
        <translation>Falha no envio · Tentar de novo</translation>
    </message>
    <message>
        <source>Upload uncertain · Retry</source>
        <translation>Envio incerto · Tentar de novo</translation>
    </message>
    <message>
        <source>Upload to R2</source>
        <translation>Enviar para o R2</translation>
    </message>
</context>
<context>
    <name>nubo::ShotUploadHistory</name>
    <message>
        <source>d MMM, HH:mm</source>
        <translation>d &apos;de&apos; MMM, HH:mm</translation>
    </message>
    <message>
        <source>Recent Uploads</source>
        <translation>Envios recentes</translation>
    </message>
    <message>
        <source>Delete from Filebin</source>
        <translation>Excluir do Filebin</translation>
    </message>
    <message>
        <source>Delete “%1” from Filebin?</source>
        <translation>Excluir “%1” do Filebin?</translation>
    </message>
    <message>
        <source>Its link stops working for everyone.</source>
        <translation>O link deixará de funcionar para todos.</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Excluir</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Arquivo</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Destino</translation>
    </message>
    <message>
        <source>Uploaded</source>
        <translation>Enviado</translation>
    </message>
    <message>
        <source>Kept until</source>
        <translation>Mantido até</translation>
    </message>
    <message>
        <source>Link or key</source>
        <translation>Link ou chave</translation>
    </message>
    <message>
        <source>Copy Link</source>
        <translation>Copiar link</translation>
    </message>
    <message>
        <source>Open Link</source>
        <translation>Abrir link</translation>
    </message>
    <message>
        <source>Copied %1</source>
        <translation>%1 copiado</translation>
    </message>
    <message>
        <source>Nothing uploaded yet.</source>
        <translation>Nada enviado ainda.</translation>
    </message>
    <message>
        <source>Deleted</source>
        <translation>Excluído</translation>
    </message>
    <message>
        <source>Expired</source>
        <translation>Expirado</translation>
    </message>
    <message>
        <source>Until deleted</source>
        <translation>Até ser excluído</translation>
    </message>
    <message>
        <source>Bucket “%1”</source>
        <translation>Bucket “%1”</translation>
    </message>
    <message>
        <source>Filebin</source>
        <translation>Filebin</translation>
    </message>
    <message>
        <source>Objects in a bucket are deleted with the bucket&apos;s own tools</source>
        <translation>Objetos em um bucket são excluídos com as ferramentas do próprio bucket</translation>
    </message>
    <message>
        <source>Deleting %1…</source>
        <translation>Excluindo %1…</translation>
    </message>
    <message>
        <source>Deleted %1 from Filebin.</source>
        <translation>%1 excluído do Filebin.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotUploadStatus</name>
    <message>
        <source>The shot could not be read for the upload: %1.</source>
        <translation>Não foi possível ler a captura para o envio: %1.</translation>
    </message>
</context>
<context>
    <name>nubo::ShotZoomControls</name>
    <message>
        <source>Zoom Out (Ctrl+-)</source>
        <translation>Reduzir (Ctrl+-)</translation>
    </message>
    <message>
        <source>Actual Size (Ctrl+0)</source>
        <translation>Tamanho real (Ctrl+0)</translation>
    </message>
    <message>
        <source>Zoom In (Ctrl++)</source>
        <translation>Ampliar (Ctrl++)</translation>
    </message>
    <message>
        <source>Fit in Window (Ctrl+9)</source>
        <translation>Ajustar à janela (Ctrl+9)</translation>
    </message>
</context>
<context>
    <name>nubo::TextRecognition</name>
    <message>
        <source>Text in “%1” cannot be recognised: its data is not installed (install the package tesseract-ocr-%2).</source>
        <translation>Não é possível reconhecer texto em “%1”: os dados não estão instalados (instale o pacote tesseract-ocr-%2).</translation>
    </message>
    <message>
        <source>The text recognition engine could not start with “%1”.</source>
        <translation>O mecanismo de reconhecimento de texto não pôde iniciar com “%1”.</translation>
    </message>
    <message>
        <source>The text could not be recognised.</source>
        <translation>Não foi possível reconhecer o texto.</translation>
    </message>
</context>
<context>
    <name>nubo::TrayApplication</name>
    <message>
        <source>Open Image in Nubo Shot</source>
        <translation>Abrir imagem no Nubo Shot</translation>
    </message>
    <message>
        <source>Images (*.png *.jpg *.jpeg *.webp *.bmp *.gif)</source>
        <translation>Imagens (*.png *.jpg *.jpeg *.webp *.bmp *.gif)</translation>
    </message>
    <message>
        <source>Could Not Open Image</source>
        <translation>Não foi possível abrir a imagem</translation>
    </message>
    <message>
        <source>Stop the recording and quit?</source>
        <translation>Parar a gravação e sair?</translation>
    </message>
    <message>
        <source>The recording is saved before Nubo Shot quits.</source>
        <translation>A gravação é salva antes de o Nubo Shot sair.</translation>
    </message>
    <message>
        <source>Stop and Quit</source>
        <translation>Parar e sair</translation>
    </message>
    <message>
        <source>Nubo Shot — saving the recording</source>
        <translation>Nubo Shot — salvando a gravação</translation>
    </message>
    <message>
        <source>Open Shortcuts Settings</source>
        <translation>Abrir configurações de atalhos</translation>
    </message>
    <message>
        <source>Recovered an interrupted recording</source>
        <translation>Uma gravação interrompida foi recuperada</translation>
    </message>
    <message>
        <source>An interrupted recording could not be kept</source>
        <translation>Não foi possível manter uma gravação interrompida</translation>
    </message>
    <message numerus="yes">
        <source>%n shortcut(s) do not work</source>
        <translation>
            <numerusform>Um atalho não funciona</numerusform>
            <numerusform>%n atalhos não funcionam</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 stopped before its first picture was saved; nothing of it could be kept.</source>
        <translation>%1 parou antes de a primeira imagem ser salva; nada pôde ser mantido.</translation>
    </message>
    <message numerus="yes">
        <source>%n upload(s) were interrupted</source>
        <translation>
            <numerusform>Um envio foi interrompido</numerusform>
            <numerusform>%n envios foram interrompidos</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 may not have arrived. Upload it again from its editor, or see Recent Uploads.</source>
        <translation>%1 pode não ter chegado. Envie de novo pelo editor ou veja Envios recentes.</translation>
    </message>
    <message>
        <source>Nubo Shot — paused at %1</source>
        <translation>Nubo Shot — pausado em %1</translation>
    </message>
    <message>
        <source>Nubo Shot — recording %1</source>
        <translation>Nubo Shot — gravando %1</translation>
    </message>
    <message numerus="yes">
        <source>Nubo Shot — capturing in %n second(s)</source>
        <translation>
            <numerusform>Nubo Shot — captura em %n segundo</numerusform>
            <numerusform>Nubo Shot — captura em %n segundos</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nubo::Uploader</name>
    <message>
        <source>The S3 destination is not set up: give its endpoint, region, bucket and access key id in the Uploads settings.</source>
        <translation>O destino S3 não está configurado: informe o endpoint, a região, o bucket e o ID da chave de acesso nas configurações de Envios.</translation>
    </message>
    <message>
        <source>The keyring holds no S3 secret for the access key id “%1”: enter it in the Uploads settings.</source>
        <translation>O chaveiro não tem segredo S3 para o ID da chave de acesso “%1”: digite-o nas configurações de Envios.</translation>
    </message>
    <message>
        <source>The Filebin server “%1” is not an http or https address.</source>
        <translation>O servidor Filebin “%1” não é um endereço http ou https.</translation>
    </message>
    <message>
        <source>The upload was cancelled.</source>
        <translation>O envio foi cancelado.</translation>
    </message>
    <message>
        <source>The upload to %1 failed: %2.</source>
        <translation>O envio para %1 falhou: %2.</translation>
    </message>
    <message>
        <source>Only Filebin uploads can be deleted from here.</source>
        <translation>Só envios para o Filebin podem ser excluídos daqui.</translation>
    </message>
    <message>
        <source>Filebin could not be reached: %1.</source>
        <translation>Não foi possível acessar o Filebin: %1.</translation>
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
        <translation>Automático: o bucket quando configurado, senão o Filebin</translation>
    </message>
    <message>
        <source>S3-compatible bucket (R2)</source>
        <translation>Bucket compatível com S3 (R2)</translation>
    </message>
    <message>
        <source>Filebin</source>
        <translation>Filebin</translation>
    </message>
    <message>
        <source>Upload to:</source>
        <translation>Enviar para:</translation>
    </message>
    <message>
        <source>A new bin for every upload</source>
        <translation>Um bin novo para cada envio</translation>
    </message>
    <message>
        <source>S3-compatible bucket</source>
        <translation>Bucket compatível com S3</translation>
    </message>
    <message>
        <source>Key prefix:</source>
        <translation>Prefixo da chave:</translation>
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
        <translation>Bucket no nome do host (virtual-hosted style)</translation>
    </message>
    <message>
        <source>Access key ID:</source>
        <translation>ID da chave de acesso:</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>Esquecer</translation>
    </message>
    <message>
        <source>Secret access key:</source>
        <translation>Chave de acesso secreta:</translation>
    </message>
    <message>
        <source>Try it</source>
        <translation>Testar</translation>
    </message>
    <message>
        <source>Test Upload</source>
        <translation>Envio de teste</translation>
    </message>
    <message>
        <source>Uploads a small picture to the destination above</source>
        <translation>Envia uma imagem pequena para o destino acima</translation>
    </message>
    <message>
        <source>The settings could not be kept: %1</source>
        <translation>Não foi possível guardar as configurações: %1</translation>
    </message>
    <message>
        <source>Enter the access key ID first.</source>
        <translation>Digite primeiro o ID da chave de acesso.</translation>
    </message>
    <message>
        <source>Asking the keyring…</source>
        <translation>Consultando o chaveiro…</translation>
    </message>
    <message>
        <source>Set · type to replace</source>
        <translation>Definida · digite para substituir</translation>
    </message>
    <message>
        <source>Kept in the desktop&apos;s keyring.</source>
        <translation>Guardada no chaveiro da área de trabalho.</translation>
    </message>
    <message>
        <source>Not set</source>
        <translation>Não definida</translation>
    </message>
    <message>
        <source>Not set: uploads to the bucket need it.</source>
        <translation>Não definida: os envios para o bucket precisam dela.</translation>
    </message>
    <message>
        <source>Not available</source>
        <translation>Indisponível</translation>
    </message>
    <message>
        <source>Storing in the keyring…</source>
        <translation>Guardando no chaveiro…</translation>
    </message>
    <message>
        <source>Uploading to the bucket…</source>
        <translation>Enviando para o bucket…</translation>
    </message>
    <message>
        <source>Uploading to Filebin…</source>
        <translation>Enviando para o Filebin…</translation>
    </message>
    <message>
        <source>Uploaded: %1</source>
        <translation>Enviado: %1</translation>
    </message>
    <message>
        <source>Links are copied after upload. Without a public URL, object keys are copied.</source>
        <translation>Os links são copiados após o envio. Sem uma URL pública, as chaves dos objetos são copiadas.</translation>
    </message>
    <message>
        <source>Filebin keeps files for about a week; anyone with the link can see them.</source>
        <translation>O Filebin guarda os arquivos por cerca de uma semana; qualquer pessoa com o link pode vê-los.</translation>
    </message>
    <message>
        <source>Uploaded as %1 (no public URL, so this is the object key).</source>
        <translation>Enviado como %1 (sem URL pública, então esta é a chave do objeto).</translation>
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
        <translation>Endpoint:</translation>
    </message>
    <message>
        <source>Region:</source>
        <translation>Região:</translation>
    </message>
    <message>
        <source>Bucket:</source>
        <translation>Bucket:</translation>
    </message>
    <message>
        <source>Failed.</source>
        <translation>Falhou.</translation>
    </message>
</context>
<context>
    <name>nubo::XcbConnection</name>
    <message>
        <source>The X display stores pixels at a depth of %1 bits (%2 bits a pixel), which Nubo Shot cannot read; it reads depths 15, 16, 24, 30 and 32.</source>
        <translation>A tela X armazena pixels com profundidade de %1 bits (%2 bits por pixel), que o Nubo Shot não consegue ler; ele lê as profundidades 15, 16, 24, 30 e 32.</translation>
    </message>
    <message>
        <source>There is not enough memory to read the screen.</source>
        <translation>Não há memória suficiente para ler a tela.</translation>
    </message>
    <message>
        <source>The X server sent %1 bytes of pixels where %2 were asked for.</source>
        <translation>O servidor X enviou %1 bytes de pixels em vez dos %2 pedidos.</translation>
    </message>
    <message>
        <source>The screen could not be read: %1.</source>
        <translation>Não foi possível ler a tela: %1.</translation>
    </message>
</context>
<context>
    <name>nubo::XcbGlobalShortcuts</name>
    <message>
        <source>The shortcut %1 is not on this keyboard.</source>
        <translation>O atalho %1 não existe neste teclado.</translation>
    </message>
    <message>
        <source>The shortcut %1 is used by another program.</source>
        <translation>O atalho %1 é usado por outro programa.</translation>
    </message>
</context>
</TS>
