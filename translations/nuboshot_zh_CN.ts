<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>nubo::BackupSettingsPage</name>
    <message>
        <source>Settings file</source>
        <translation>设置文件</translation>
    </message>
    <message>
        <source>Back Up Settings…</source>
        <translation>备份设置…</translation>
    </message>
    <message>
        <source>Restore Settings…</source>
        <translation>恢复设置…</translation>
    </message>
    <message>
        <source>Back Up Settings</source>
        <translation>备份设置</translation>
    </message>
    <message>
        <source>Settings backups (*.json)</source>
        <translation>设置备份 (*.json)</translation>
    </message>
    <message>
        <source>Restore Settings</source>
        <translation>恢复设置</translation>
    </message>
    <message>
        <source>Settings backups (*.json);;All files (*)</source>
        <translation>设置备份 (*.json);;所有文件 (*)</translation>
    </message>
    <message>
        <source>Settings backed up to “%1”.</source>
        <translation>设置已备份到“%1”。</translation>
    </message>
    <message>
        <source>Every preference goes into one file you can keep or take to another computer. Passwords and keys never do: they stay in the desktop&apos;s keyring.</source>
        <translation>所有偏好设置都保存在一个文件中，您可以保留它或带到另一台电脑。密码和密钥从不写入：它们始终保存在桌面的密钥环中。</translation>
    </message>
</context>
<context>
    <name>nubo::CameraStreamSource</name>
    <message>
        <source>The camera “%1” is not connected.</source>
        <translation>摄像头“%1”未连接。</translation>
    </message>
    <message>
        <source>The camera “%1” cannot be opened: %2.</source>
        <translation>无法打开摄像头“%1”：%2。</translation>
    </message>
    <message>
        <source>The camera “%1” gives no pictures: %2.</source>
        <translation>摄像头“%1”没有画面：%2。</translation>
    </message>
    <message>
        <source>The camera “%1” gives no pictures that can be read.</source>
        <translation>摄像头“%1”没有可读取的画面。</translation>
    </message>
    <message>
        <source>The camera&apos;s pictures (%1) cannot be decoded: %2.</source>
        <translation>无法解码摄像头的画面（%1）：%2。</translation>
    </message>
    <message>
        <source>The camera stopped: %1.</source>
        <translation>摄像头已停止：%1。</translation>
    </message>
</context>
<context>
    <name>nubo::CapturePlatformLoader</name>
    <message>
        <source>No X display to capture: DISPLAY is not set.</source>
        <translation>没有可截取的 X 显示：未设置 DISPLAY。</translation>
    </message>
    <message>
        <source>The X display “%1” (DISPLAY) cannot be reached.</source>
        <translation>无法连接 X 显示“%1”（DISPLAY）。</translation>
    </message>
    <message>
        <source>This Wayland desktop has no screen-cast portal to capture through: install the desktop&apos;s portal backend (xdg-desktop-portal-gnome, -kde or -wlr) and log in again.</source>
        <translation>此 Wayland 桌面没有可用于截取的屏幕投射门户：请安装桌面的门户后端（xdg-desktop-portal-gnome、-kde 或 -wlr）并重新登录。</translation>
    </message>
    <message>
        <source>There is no capture backend “%1” (%2); this build has: %3.</source>
        <translation>没有截取后端“%1”（%2）；此版本包含：%3。</translation>
    </message>
    <message>
        <source>No display to capture: neither DISPLAY nor WAYLAND_DISPLAY is set.</source>
        <translation>没有可截取的显示：DISPLAY 和 WAYLAND_DISPLAY 均未设置。</translation>
    </message>
</context>
<context>
    <name>nubo::CaptureTypes</name>
    <message>
        <source>Screen Recording permission is required.</source>
        <translation>需要屏幕录制权限。</translation>
    </message>
    <message>
        <source>Capture was cancelled.</source>
        <translation>截图已取消。</translation>
    </message>
    <message>
        <source>No screen content is available.</source>
        <translation>没有可用的屏幕内容。</translation>
    </message>
</context>
<context>
    <name>nubo::EditorSettingsPage</name>
    <message>
        <source>Tools</source>
        <translation>工具</translation>
    </message>
    <message>
        <source>Return to Select after drawing</source>
        <translation>绘制后返回“选择”</translation>
    </message>
    <message>
        <source>Colour and size of new marks</source>
        <translation>新标注的颜色和大小</translation>
    </message>
    <message>
        <source>Colour…</source>
        <translation>颜色…</translation>
    </message>
    <message>
        <source> pt</source>
        <translation> pt</translation>
    </message>
    <message>
        <source>Blur / Censor</source>
        <translation>模糊 / 遮盖</translation>
    </message>
    <message>
        <source>%1 Colour</source>
        <translation>%1 颜色</translation>
    </message>
    <message>
        <source>Draw and Number stay active, for one stroke or number after another.</source>
        <translation>“绘制”和“编号”会保持选中，可以连续画多笔或放置多个编号。</translation>
    </message>
    <message>
        <source>The size of the blocks the hidden area is shown in: larger blocks show less.</source>
        <translation>隐藏区域显示所用色块的大小：色块越大，显示的内容越少。</translation>
    </message>
    <message>
        <source>Strength:</source>
        <translation>强度：</translation>
    </message>
    <message>
        <source>Text in shots</source>
        <translation>截图中的文字</translation>
    </message>
    <message>
        <source>Languages:</source>
        <translation>语言：</translation>
    </message>
    <message>
        <source>Copy Text and Capture Text read these. With none ticked, the desktop&apos;s language and English. More come with the packages tesseract-ocr-LANGUAGE.</source>
        <translation>“复制文字”和“识别文字”使用这些语言。若未勾选任何语言，则使用桌面的语言和英语。更多语言可通过 tesseract-ocr-语言 软件包安装。</translation>
    </message>
</context>
<context>
    <name>nubo::EmojiCatalog</name>
    <message>
        <source>Everyday</source>
        <translation>常用</translation>
    </message>
    <message>
        <source>Only a few emoji are offered: %1 cannot be read (%2). Install the package unicode-data for all of them.</source>
        <translation>仅提供少量表情：无法读取 %1（%2）。请安装 unicode-data 软件包以获得全部表情。</translation>
    </message>
    <message>
        <source>Only a few emoji are offered: %1 lists none. Reinstall the package unicode-data.</source>
        <translation>仅提供少量表情：%1 中没有列出任何表情。请重新安装 unicode-data 软件包。</translation>
    </message>
</context>
<context>
    <name>nubo::GeneralSettingsPage</name>
    <message>
        <source>Start-up</source>
        <translation>启动</translation>
    </message>
    <message>
        <source>Start Nubo Shot when I log in</source>
        <translation>登录时启动 Nubo Shot</translation>
    </message>
    <message>
        <source>Shots</source>
        <translation>截图</translation>
    </message>
    <message>
        <source>Show Recent in menu</source>
        <translation>在菜单中显示“最近”</translation>
    </message>
    <message>
        <source>Include the pointer</source>
        <translation>包含鼠标指针</translation>
    </message>
    <message>
        <source>Adjust the area before capturing</source>
        <translation>截图前调整区域</translation>
    </message>
    <message>
        <source>Also copy raw shot</source>
        <translation>同时复制原始截图</translation>
    </message>
    <message>
        <source>On Wayland a program sees the clipboard only while one of its windows has the keyboard: images copied in other applications join Recent the next time you use Nubo Shot.</source>
        <translation>在 Wayland 下，程序只有在其窗口获得键盘焦点时才能看到剪贴板：在其他应用中复制的图片会在您下次使用 Nubo Shot 时加入“最近”。</translation>
    </message>
    <message>
        <source>A dragged area keeps its handles: move it with the arrow keys, resize it with Alt and the arrow keys, and press Return or double-click it to capture.</source>
        <translation>拖出的区域会保留控制柄：用方向键移动，用 Alt 加方向键调整大小，按回车或双击即可截图。</translation>
    </message>
    <message>
        <source>Puts every capture on the clipboard at once, before anything is drawn on it.</source>
        <translation>每次截图后立即复制到剪贴板，在任何标注之前。</translation>
    </message>
</context>
<context>
    <name>nubo::ImageWriter</name>
    <message>
        <source>Could not write “%1”: %2.</source>
        <translation>无法写入“%1”：%2。</translation>
    </message>
</context>
<context>
    <name>nubo::LevelMeter</name>
    <message>
        <source>Microphone level</source>
        <translation>麦克风音量</translation>
    </message>
</context>
<context>
    <name>nubo::OutputSettingsPage</name>
    <message>
        <source>Quick save</source>
        <translation>快速保存</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>选择…</translation>
    </message>
    <message>
        <source>Use Downloads</source>
        <translation>使用“下载”文件夹</translation>
    </message>
    <message>
        <source>Quick-Save Folder</source>
        <translation>快速保存文件夹</translation>
    </message>
    <message>
        <source>File names:</source>
        <translation>文件名：</translation>
    </message>
    <message>
        <source>Close the editor after</source>
        <translation>以下操作后关闭编辑器</translation>
    </message>
    <message>
        <source>Copying</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Saving</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Dragging out</source>
        <translation>拖出</translation>
    </message>
    <message>
        <source>Hold Alt, or pin the editor, to keep it open once.</source>
        <translation>按住 Alt 或固定编辑器，可让其保持打开一次。</translation>
    </message>
    <message>
        <source>No folder chosen: shots go to Downloads.</source>
        <translation>未选择文件夹：截图将保存到“下载”。</translation>
    </message>
    <message>
        <source>A second shot in the same second gets “ (2)”, and so on: no file is ever replaced.</source>
        <translation>同一秒内的第二张截图会加上“ (2)”，依此类推：不会覆盖任何文件。</translation>
    </message>
    <message>
        <source>“%1” is missing or cannot be written to: shots go to Downloads until it is back.</source>
        <translation>“%1”不存在或无法写入：在其恢复之前，截图将保存到“下载”。</translation>
    </message>
    <message>
        <source>Folder:</source>
        <translation>文件夹：</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>格式：</translation>
    </message>
</context>
<context>
    <name>nubo::PermissionsSettingsPage</name>
    <message>
        <source>What Nubo Shot may use</source>
        <translation>Nubo Shot 可使用的功能</translation>
    </message>
    <message>
        <source>Screen capture</source>
        <translation>屏幕截取</translation>
    </message>
    <message>
        <source>Forget Grant</source>
        <translation>撤销授权</translation>
    </message>
    <message>
        <source>The desktop asks again at the next capture</source>
        <translation>下次截图时桌面会再次询问</translation>
    </message>
    <message>
        <source>Global shortcuts</source>
        <translation>全局快捷键</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>麦克风</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>摄像头</translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation>通知</translation>
    </message>
    <message>
        <source>Keyring</source>
        <translation>密钥环</translation>
    </message>
    <message>
        <source>Check Again</source>
        <translation>重新检查</translation>
    </message>
    <message>
        <source>Allowed: this X11 desktop lets programs read the screen.</source>
        <translation>已允许：此 X11 桌面允许程序读取屏幕。</translation>
    </message>
    <message>
        <source>Available through the sound server.</source>
        <translation>可通过声音服务器使用。</translation>
    </message>
    <message>
        <source>Available: %1.</source>
        <translation>可用：%1。</translation>
    </message>
    <message>
        <source>Shown by the desktop&apos;s notification service.</source>
        <translation>由桌面的通知服务显示。</translation>
    </message>
    <message>
        <source>Granted through the desktop&apos;s screen-sharing dialog; captures do not ask again.</source>
        <translation>已通过桌面的屏幕共享对话框授权；截图时不会再次询问。</translation>
    </message>
    <message>
        <source>Not yet granted: the desktop shows its screen-sharing dialog at the next capture. Choose every screen and allow it to be remembered.</source>
        <translation>尚未授权：下次截图时桌面会显示屏幕共享对话框。请选择所有屏幕并允许记住此选择。</translation>
    </message>
    <message>
        <source>Bound: the keys on the Shortcuts page work wherever the focus is.</source>
        <translation>已绑定：“快捷键”页面中的按键在任何位置都有效。</translation>
    </message>
    <message>
        <source>This desktop gives programs no global keys: bind the commands of the Shortcuts page in the desktop&apos;s keyboard settings.</source>
        <translation>此桌面不向程序提供全局按键：请在桌面的键盘设置中绑定“快捷键”页面中的命令。</translation>
    </message>
    <message>
        <source>No camera can be opened: connect one, and make sure your user is in the “video” group.</source>
        <translation>无法打开任何摄像头：请连接一个，并确认您的用户属于“video”组。</translation>
    </message>
    <message numerus="yes">
        <source>Available: %1 and %n more.</source>
        <translation>
            <numerusform>可用：%1 及另外 %n 个。</numerusform>
        </translation>
    </message>
    <message>
        <source>No notification service: messages appear as the tray icon&apos;s bubbles instead.</source>
        <translation>没有通知服务：消息将以托盘图标气泡的形式显示。</translation>
    </message>
    <message>
        <source>The desktop&apos;s keyring (Secret Service) keeps upload secrets.</source>
        <translation>桌面的密钥环（Secret Service）保存上传所需的密钥。</translation>
    </message>
    <message>
        <source>No keyring: install gnome-keyring (or a password manager offering the Secret Service) to store upload secrets.</source>
        <translation>没有密钥环：请安装 gnome-keyring（或提供 Secret Service 的密码管理器）以保存上传密钥。</translation>
    </message>
</context>
<context>
    <name>nubo::PortalRequest</name>
    <message>
        <source>There is no session bus to reach the desktop portal.</source>
        <translation>没有可连接桌面门户的会话总线。</translation>
    </message>
    <message>
        <source>The desktop portal did not answer %1 within %2 s.</source>
        <translation>桌面门户未在 %2 秒内响应 %1。</translation>
    </message>
</context>
<context>
    <name>nubo::PortalScreenCast</name>
    <message>
        <source>The desktop portal offers no screen casting (org.freedesktop.portal.ScreenCast).</source>
        <translation>桌面门户不提供屏幕投射（org.freedesktop.portal.ScreenCast）。</translation>
    </message>
    <message>
        <source>The desktop portal made no screen-cast session.</source>
        <translation>桌面门户未创建屏幕投射会话。</translation>
    </message>
    <message>
        <source>The desktop portal gave no PipeWire connection.</source>
        <translation>桌面门户未提供 PipeWire 连接。</translation>
    </message>
</context>
<context>
    <name>nubo::PulseAudioCapture</name>
    <message>
        <source>The audio server cannot be reached: no event loop.</source>
        <translation>无法连接音频服务器：没有事件循环。</translation>
    </message>
    <message>
        <source>No audio server answers.</source>
        <translation>没有音频服务器响应。</translation>
    </message>
    <message>
        <source>No audio server answers: %1.</source>
        <translation>没有音频服务器响应：%1。</translation>
    </message>
    <message>
        <source>No audio server answers: it did not reply in time.</source>
        <translation>没有音频服务器响应：未及时回复。</translation>
    </message>
    <message>
        <source>The audio server did not answer: %1.</source>
        <translation>音频服务器未响应：%1。</translation>
    </message>
    <message>
        <source>No sound server answers: install PipeWire (pipewire-pulse) or PulseAudio and log in again.</source>
        <translation>没有声音服务器响应：请安装 PipeWire（pipewire-pulse）或 PulseAudio 并重新登录。</translation>
    </message>
    <message>
        <source>The audio source “%1” cannot be recorded: %2.</source>
        <translation>无法录制音频源“%1”：%2。</translation>
    </message>
    <message>
        <source>The audio server has no sound output to record.</source>
        <translation>音频服务器没有可录制的声音输出。</translation>
    </message>
    <message>
        <source>The audio server has no microphone to record.</source>
        <translation>音频服务器没有可录制的麦克风。</translation>
    </message>
</context>
<context>
    <name>nubo::RecordingSession</name>
    <message>
        <source>The folder “%1” cannot be created.</source>
        <translation>无法创建文件夹“%1”。</translation>
    </message>
</context>
<context>
    <name>nubo::RecordingSettingsPage</name>
    <message>
        <source>Video</source>
        <translation>视频</translation>
    </message>
    <message>
        <source>Frame rate:</source>
        <translation>帧率：</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>声音</translation>
    </message>
    <message>
        <source>In the recording</source>
        <translation>录制内容</translation>
    </message>
    <message>
        <source>Show the pointer</source>
        <translation>显示鼠标指针</translation>
    </message>
    <message>
        <source>Highlight clicks</source>
        <translation>突出显示点击</translation>
    </message>
    <message>
        <source>Camera bubble</source>
        <translation>摄像头气泡</translation>
    </message>
    <message>
        <source>Count down 3 seconds before recording</source>
        <translation>录制前倒数 3 秒</translation>
    </message>
    <message>
        <source>Saving</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>选择…</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>默认</translation>
    </message>
    <message>
        <source>Recordings folder:</source>
        <translation>录制文件夹：</translation>
    </message>
    <message>
        <source>Recordings Folder</source>
        <translation>录制文件夹</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>快捷键</translation>
    </message>
    <message>
        <source>Starts a recording, and stops the one under way.</source>
        <translation>开始录制，或停止正在进行的录制。</translation>
    </message>
    <message>
        <source> (default)</source>
        <translation>（默认）</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>格式：</translation>
    </message>
    <message>
        <source>Resolution:</source>
        <translation>分辨率：</translation>
    </message>
    <message>
        <source>Microphone:</source>
        <translation>麦克风：</translation>
    </message>
    <message>
        <source>Camera:</source>
        <translation>摄像头：</translation>
    </message>
</context>
<context>
    <name>nubo::RecordingTypes</name>
    <message>
        <source>The media encoder could not accept recording data.</source>
        <translation>媒体编码器无法接收录制数据。</translation>
    </message>
    <message>
        <source>The recording could not be saved. </source>
        <translation>无法保存录制。</translation>
    </message>
    <message>
        <source>Microphone recording requires a running audio server.</source>
        <translation>录制麦克风需要正在运行的音频服务器。</translation>
    </message>
    <message>
        <source>Click highlighting requires the X Input extension.</source>
        <translation>突出显示点击需要 X Input 扩展。</translation>
    </message>
    <message>
        <source>The selected recording codec is unavailable.</source>
        <translation>所选的录制编码器不可用。</translation>
    </message>
    <message>
        <source>The recording cannot perform this action right now.</source>
        <translation>录制目前无法执行此操作。</translation>
    </message>
    <message>
        <source>No video frames were recorded.</source>
        <translation>没有录到任何视频帧。</translation>
    </message>
    <message>
        <source>Recording audio could not be processed.</source>
        <translation>无法处理录制的音频。</translation>
    </message>
</context>
<context>
    <name>nubo::S3Signing</name>
    <message>
        <source>The S3 endpoint “%1” is not an http or https address.</source>
        <translation>S3 端点“%1”不是 http 或 https 地址。</translation>
    </message>
</context>
<context>
    <name>nubo::ShortcutsSettingsPage</name>
    <message>
        <source>Capture and record from anywhere</source>
        <translation>随时截图和录制</translation>
    </message>
    <message>
        <source>Reset to Defaults</source>
        <translation>恢复默认设置</translation>
    </message>
    <message>
        <source>Bind keys in the desktop&apos;s settings</source>
        <translation>在桌面设置中绑定按键</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Copy the command</source>
        <translation>复制命令</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>已复制</translation>
    </message>
    <message>
        <source>This desktop offers no global shortcuts: they are kept for when it does.</source>
        <translation>此桌面不提供全局快捷键：设置会保留，待其支持时生效。</translation>
    </message>
    <message>
        <source>Add a custom shortcut in the desktop&apos;s keyboard settings (GNOME: Settings → Keyboard → Custom Shortcuts; KDE: System Settings → Shortcuts; sway: a bindsym line) that runs the command.</source>
        <translation>在桌面的键盘设置中添加一个运行该命令的自定义快捷键（GNOME：设置 → 键盘 → 自定义快捷键；KDE：系统设置 → 快捷键；sway：一行 bindsym）。</translation>
    </message>
</context>
<context>
    <name>nubo::ShotApplications</name>
    <message>
        <source>%1 could not be started: %2.</source>
        <translation>无法启动 %1：%2。</translation>
    </message>
    <message>
        <source>%1 cannot be started: its desktop entry %2 has an Exec line that cannot be read.</source>
        <translation>无法启动 %1：其桌面条目 %2 中的 Exec 行无法读取。</translation>
    </message>
</context>
<context>
    <name>nubo::ShotBottomBar</name>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Copy (Ctrl+C) · Hold Alt to keep open</source>
        <translation>复制 (Ctrl+C) · 按住 Alt 保持打开</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Save to the quick-save folder (Ctrl+S) · Hold Alt to keep open</source>
        <translation>保存到快速保存文件夹 (Ctrl+S) · 按住 Alt 保持打开</translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>另存为…</translation>
    </message>
    <message>
        <source>Save As (Ctrl+Shift+S)</source>
        <translation>另存为 (Ctrl+Shift+S)</translation>
    </message>
    <message>
        <source>Open With</source>
        <translation>打开方式</translation>
    </message>
    <message>
        <source>Open the shot in another application</source>
        <translation>在其他应用中打开截图</translation>
    </message>
    <message>
        <source>Upload to R2</source>
        <translation>上传到 R2</translation>
    </message>
    <message>
        <source>Upload to Filebin</source>
        <translation>上传到 Filebin</translation>
    </message>
    <message>
        <source>Cancel upload</source>
        <translation>取消上传</translation>
    </message>
    <message>
        <source>Keep this editor open after copying, saving or dragging</source>
        <translation>复制、保存或拖出后保持此编辑器打开</translation>
    </message>
    <message>
        <source>%1 (Default)</source>
        <translation>%1（默认）</translation>
    </message>
    <message>
        <source>No application opens PNG images</source>
        <translation>没有可打开 PNG 图片的应用</translation>
    </message>
    <message>
        <source>Other Application…</source>
        <translation>其他应用…</translation>
    </message>
    <message>
        <source>Set up a bucket on the Uploads page of the settings first</source>
        <translation>请先在设置的“上传”页面中配置存储桶</translation>
    </message>
    <message>
        <source>Filebin</source>
        <translation>Filebin</translation>
    </message>
    <message>
        <source>Sending the shot to %1</source>
        <translation>正在将截图发送到 %1</translation>
    </message>
    <message>
        <source>Upload the shot as PNG to %1; the link is copied</source>
        <translation>将截图以 PNG 格式上传到 %1；链接会被复制</translation>
    </message>
    <message>
        <source>your bucket</source>
        <translation>您的存储桶</translation>
    </message>
    <message>
        <source>Object key %1 · Click to copy it again · Set a public URL in the settings to get links</source>
        <translation>对象键 %1 · 点击再次复制 · 在设置中填写公开 URL 即可获得链接</translation>
    </message>
    <message>
        <source>%1 · Click to copy the link again</source>
        <translation>%1 · 点击再次复制链接</translation>
    </message>
    <message>
        <source>%1 · Click to try again</source>
        <translation>%1 · 点击重试</translation>
    </message>
    <message>
        <source>Keep Open</source>
        <translation>保持打开</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>钉住</translation>
    </message>
    <message>
        <source>Pin the shot to the screen, above other windows (Ctrl+Shift+P)</source>
        <translation>将截图钉在屏幕上，置于其他窗口之上（Ctrl+Shift+P）</translation>
    </message>
</context>
<context>
    <name>nubo::ShotCameraBubble</name>
    <message>
        <source>No camera is available.</source>
        <translation>没有可用的摄像头。</translation>
    </message>
</context>
<context>
    <name>nubo::ShotCameraPreview</name>
    <message>
        <source>Drag to move the camera; scroll or drag its corner to resize it</source>
        <translation>拖动以移动摄像头；滚动或拖动其角落以调整大小</translation>
    </message>
    <message>
        <source>Starting the camera…</source>
        <translation>正在启动摄像头…</translation>
    </message>
</context>
<context>
    <name>nubo::ShotCaptureOverlay</name>
    <message>
        <source>Drag to capture · Esc: Cancel</source>
        <translation>拖动以截图 · Esc：取消</translation>
    </message>
    <message>
        <source>Drag to capture · Space: Window · Esc: Cancel</source>
        <translation>拖动以截图 · 空格：窗口 · Esc：取消</translation>
    </message>
    <message>
        <source>Click a window · Space: Area · Esc: Cancel</source>
        <translation>点击一个窗口 · 空格：区域 · Esc：取消</translation>
    </message>
    <message>
        <source>Drag to select scroll area · Esc: Cancel</source>
        <translation>拖动以选择滚动区域 · Esc：取消</translation>
    </message>
    <message>
        <source>Drag</source>
        <translation>拖动</translation>
    </message>
    <message>
        <source>Frame the area to record</source>
        <translation>框选要录制的区域</translation>
    </message>
    <message>
        <source>Frame an area</source>
        <translation>框选一个区域</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>空格</translation>
    </message>
    <message>
        <source>Pick a window instead</source>
        <translation>改为选择窗口</translation>
    </message>
    <message>
        <source>Click or F</source>
        <translation>点击或 F</translation>
    </message>
    <message>
        <source>Record the whole screen</source>
        <translation>录制整个屏幕</translation>
    </message>
    <message>
        <source>Arrows</source>
        <translation>方向键</translation>
    </message>
    <message>
        <source>Move the area (Shift: 10 pt)</source>
        <translation>移动区域（Shift：10 pt）</translation>
    </message>
    <message>
        <source>Alt+Arrows</source>
        <translation>Alt+方向键</translation>
    </message>
    <message>
        <source>Resize the area</source>
        <translation>调整区域大小</translation>
    </message>
    <message>
        <source>Return, Double-Click</source>
        <translation>回车、双击</translation>
    </message>
    <message>
        <source>Record the area</source>
        <translation>录制该区域</translation>
    </message>
    <message>
        <source>Capture the area</source>
        <translation>截取该区域</translation>
    </message>
    <message>
        <source>Release</source>
        <translation>松开</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Click here to hide this for good</source>
        <translation>点击此处永久隐藏</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>按键</translation>
    </message>
    <message>
        <source>Drag the area or its handles · Arrows: Move · Alt+Arrows: Resize · Shift: 10 pt · Return or Double-Click: Record · Esc: Cancel</source>
        <translation>拖动区域或其控制柄 · 方向键：移动 · Alt+方向键：调整大小 · Shift：10 pt · 回车或双击：录制 · Esc：取消</translation>
    </message>
    <message>
        <source>Drag the area or its handles · Arrows: Move · Alt+Arrows: Resize · Shift: 10 pt · Return or Double-Click: Capture · Esc: Cancel</source>
        <translation>拖动区域或其控制柄 · 方向键：移动 · Alt+方向键：调整大小 · Shift：10 pt · 回车或双击：截图 · Esc：取消</translation>
    </message>
    <message>
        <source>Drag an area to record · Click or F: Whole Screen · Space: Pick a Window · Esc: Cancel</source>
        <translation>拖动选择要录制的区域 · 点击或 F：整个屏幕 · 空格：选择窗口 · Esc：取消</translation>
    </message>
    <message>
        <source>Drag to capture · Space: Pick a Window · Esc: Cancel</source>
        <translation>拖动以截图 · 空格：选择窗口 · Esc：取消</translation>
    </message>
    <message>
        <source>Drag an area to record · Click or F: Whole Screen · Esc: Cancel</source>
        <translation>拖动选择要录制的区域 · 点击或 F：整个屏幕 · Esc：取消</translation>
    </message>
    <message>
        <source>Drag an area to record · Click or F: Whole Screen · Space: Window · Esc: Cancel</source>
        <translation>拖动选择要录制的区域 · 点击或 F：整个屏幕 · 空格：窗口 · Esc：取消</translation>
    </message>
    <message>
        <source>Click a window to record · Space: Area · F: Whole Screen · Esc: Cancel</source>
        <translation>点击要录制的窗口 · 空格：区域 · F：整个屏幕 · Esc：取消</translation>
    </message>
    <message>
        <source>Drag to select scroll area, scroll it to its end, then choose Capture Scrolling again · Esc: Cancel</source>
        <translation>拖动选择滚动区域，滚动到底后再次选择“滚动截图” · Esc：取消</translation>
    </message>
    <message>
        <source>P</source>
        <translation>P</translation>
    </message>
    <message>
        <source>Pin it to the screen</source>
        <translation>钉在屏幕上</translation>
    </message>
</context>
<context>
    <name>nubo::ShotClipboard</name>
    <message>
        <source>The screenshot could not be put on the clipboard. %1</source>
        <translation>无法将截图放到剪贴板。%1</translation>
    </message>
</context>
<context>
    <name>nubo::ShotCropBar</name>
    <message>
        <source>Free</source>
        <translation>自由</translation>
    </message>
    <message>
        <source>Square</source>
        <translation>正方形</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>裁剪</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>宽度</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>高度</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完成</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>nubo::ShotDocument</name>
    <message>
        <source>There is not enough memory for an image of %1 × %2 pixels.</source>
        <translation>内存不足，无法容纳 %1 × %2 像素的图片。</translation>
    </message>
    <message>
        <source>An image of the shot is missing (there may not have been enough memory for it).</source>
        <translation>截图中缺少一张图片（可能是内存不足）。</translation>
    </message>
    <message>
        <source>An image of %1 × %2 pixels is too large: Nubo Shot takes images of up to %L3 pixels, none wider or taller than %L4.</source>
        <translation>%1 × %2 像素的图片太大：Nubo Shot 支持最多 %L3 像素的图片，宽和高均不超过 %L4。</translation>
    </message>
    <message>
        <source>The images of this shot would hold %L1 pixels together; a shot holds at most %L2.</source>
        <translation>此截图的图片合计将有 %L1 像素；一张截图最多 %L2 像素。</translation>
    </message>
    <message>
        <source>The shot would be %L1 × %L2 points; it may be at most %L3 points wide and tall.</source>
        <translation>截图将为 %L1 × %L2 点；宽和高最多 %L3 点。</translation>
    </message>
</context>
<context>
    <name>nubo::ShotDragHandle</name>
    <message>
        <source>Drag Me</source>
        <translation>拖动我</translation>
    </message>
    <message>
        <source>Drag PNG · Hold Alt at drop to keep open</source>
        <translation>拖出 PNG · 松开时按住 Alt 保持打开</translation>
    </message>
</context>
<context>
    <name>nubo::ShotEditorModel</name>
    <message>
        <source>There is not enough memory to add an image of %1 × %2 pixels.</source>
        <translation>内存不足，无法添加 %1 × %2 像素的图片。</translation>
    </message>
    <message>
        <source>There is no image to add (it could not be read, or it is larger than Nubo Shot takes).</source>
        <translation>没有可添加的图片（无法读取，或超出 Nubo Shot 支持的大小）。</translation>
    </message>
</context>
<context>
    <name>nubo::ShotEditorWindow</name>
    <message>
        <source>Tools</source>
        <translation>工具</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>输出</translation>
    </message>
    <message>
        <source>Width %1 pt</source>
        <translation>宽度 %1 pt</translation>
    </message>
    <message>
        <source>Size %1 pt</source>
        <translation>大小 %1 pt</translation>
    </message>
    <message>
        <source>Strength %1</source>
        <translation>强度 %1</translation>
    </message>
    <message>
        <source>A text holds at most %L1 characters.</source>
        <translation>一段文字最多 %L1 个字符。</translation>
    </message>
    <message>
        <source>Add Image</source>
        <translation>添加图片</translation>
    </message>
    <message>
        <source>Images (*.png *.jpg *.jpeg *.webp *.bmp *.gif)</source>
        <translation>图片 (*.png *.jpg *.jpeg *.webp *.bmp *.gif)</translation>
    </message>
    <message>
        <source>Could Not Add Image</source>
        <translation>无法添加图片</translation>
    </message>
    <message>
        <source>Select annotations to cut them</source>
        <translation>选择标注后才能剪切</translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation>滚轮</translation>
    </message>
    <message>
        <source>Size of the tool</source>
        <translation>工具大小</translation>
    </message>
    <message>
        <source>Space+Drag</source>
        <translation>空格+拖动</translation>
    </message>
    <message>
        <source>Move around the shot</source>
        <translation>在截图中移动视图</translation>
    </message>
    <message>
        <source>Arrows</source>
        <translation>方向键</translation>
    </message>
    <message>
        <source>Move the selection</source>
        <translation>移动所选内容</translation>
    </message>
    <message>
        <source>Ctrl+Z, Ctrl+Shift+Z</source>
        <translation>Ctrl+Z、Ctrl+Shift+Z</translation>
    </message>
    <message>
        <source>Undo, Redo</source>
        <translation>撤销、重做</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Ctrl+C</translation>
    </message>
    <message>
        <source>Copy the shot</source>
        <translation>复制截图</translation>
    </message>
    <message>
        <source>Ctrl+S</source>
        <translation>Ctrl+S</translation>
    </message>
    <message>
        <source>Save the shot</source>
        <translation>保存截图</translation>
    </message>
    <message>
        <source>Ctrl+Shift+S</source>
        <translation>Ctrl+Shift+S</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>Ctrl+1, Ctrl+9</source>
        <translation>Ctrl+1、Ctrl+9</translation>
    </message>
    <message>
        <source>Actual size, Fit</source>
        <translation>实际大小、适应窗口</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Deselect, then close</source>
        <translation>取消选择，然后关闭</translation>
    </message>
    <message>
        <source>Discard this screenshot?</source>
        <translation>放弃此截图？</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>放弃</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>按键</translation>
    </message>
    <message>
        <source>Click here to hide this for good</source>
        <translation>点击此处永久隐藏</translation>
    </message>
    <message>
        <source>Your changes to this screenshot have not been copied or saved.</source>
        <translation>您对此截图的修改尚未复制或保存。</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>重做</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>全选</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Copy and Keep Open</source>
        <translation>复制并保持打开</translation>
    </message>
    <message>
        <source>Save and Keep Open</source>
        <translation>保存并保持打开</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Bring Forward</source>
        <translation>上移一层</translation>
    </message>
    <message>
        <source>Send Backward</source>
        <translation>下移一层</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>放大</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>缩小</translation>
    </message>
    <message>
        <source>Actual Size</source>
        <translation>实际大小</translation>
    </message>
    <message>
        <source>Fit in Window</source>
        <translation>适应窗口</translation>
    </message>
    <message>
        <source>%1 copied</source>
        <translation>已复制 %1</translation>
    </message>
    <message>
        <source>Copy Text</source>
        <translation>复制文字</translation>
    </message>
    <message>
        <source>Copy the shot&apos;s text, or the selected words (Ctrl+Shift+C)</source>
        <translation>复制截图中的文字或所选词语（Ctrl+Shift+C）</translation>
    </message>
    <message>
        <source>Hide Sensitive Text…</source>
        <translation>隐藏敏感文字…</translation>
    </message>
    <message>
        <source>Pixelate e-mail addresses, phone numbers, keys and the like (Ctrl+Shift+H)</source>
        <translation>为电子邮件地址、电话号码、密钥等打码（Ctrl+Shift+H）</translation>
    </message>
    <message>
        <source>Reading the text…</source>
        <translation>正在识别文字…</translation>
    </message>
    <message>
        <source>No text found in this shot</source>
        <translation>此截图中未找到文字</translation>
    </message>
    <message numerus="yes">
        <source>Copied %n word(s)</source>
        <translation>
            <numerusform>已复制 %n 个词</numerusform>
        </translation>
    </message>
    <message>
        <source>No sensitive text found</source>
        <translation>未找到敏感文字</translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) hidden</source>
        <translation>
            <numerusform>已隐藏 %n 项</numerusform>
        </translation>
    </message>
    <message>
        <source>Ctrl+Shift+C</source>
        <translation>Ctrl+Shift+C</translation>
    </message>
    <message>
        <source>Copy the text</source>
        <translation>复制文字</translation>
    </message>
    <message>
        <source>Pin to Screen</source>
        <translation>钉在屏幕上</translation>
    </message>
</context>
<context>
    <name>nubo::ShotEmojiPicker</name>
    <message>
        <source>Search emoji</source>
        <translation>搜索表情</translation>
    </message>
    <message>
        <source>Recently Used</source>
        <translation>最近使用</translation>
    </message>
    <message>
        <source>No emoji is called “%1”.</source>
        <translation>没有名为“%1”的表情。</translation>
    </message>
    <message>
        <source>Emoji you place show here.</source>
        <translation>您放置的表情会显示在这里。</translation>
    </message>
</context>
<context>
    <name>nubo::ShotFeature</name>
    <message>
        <source>Could Not Copy Screenshot</source>
        <translation>无法复制截图</translation>
    </message>
    <message>
        <source>%1 is not available yet.</source>
        <translation>%1 尚不可用。</translation>
    </message>
    <message>
        <source>Could Not Capture Screen</source>
        <translation>无法截取屏幕</translation>
    </message>
    <message>
        <source>Could Not Open Recent Image</source>
        <translation>无法打开最近的图片</translation>
    </message>
    <message>
        <source>Could Not Open Screenshot</source>
        <translation>无法打开截图</translation>
    </message>
    <message>
        <source>Could Not Read Text</source>
        <translation>无法识别文字</translation>
    </message>
    <message>
        <source>No Text Found</source>
        <translation>未找到文字</translation>
    </message>
    <message>
        <source>No text could be read in the framed area.</source>
        <translation>在所选区域中未能识别出文字。</translation>
    </message>
    <message>
        <source>Open in Editor</source>
        <translation>在编辑器中打开</translation>
    </message>
    <message numerus="yes">
        <source>Copied %n word(s)</source>
        <translation>
            <numerusform>已复制 %n 个词</numerusform>
        </translation>
    </message>
    <message>
        <source>No area has been captured yet. Frame one with Capture Area first.</source>
        <translation>尚未截取过任何区域。请先使用“截取区域”框选一个区域。</translation>
    </message>
    <message>
        <source>The display of the previous area is no longer connected.</source>
        <translation>上次区域所在的显示器已不再连接。</translation>
    </message>
    <message>
        <source>The display of the previous area changed its size (%1 × %2 pixels, now %3 × %4). Frame the area again.</source>
        <translation>上次区域所在的显示器尺寸已改变（原为 %1 × %2 像素，现为 %3 × %4）。请重新框选区域。</translation>
    </message>
</context>
<context>
    <name>nubo::ShotGlobalShortcuts</name>
    <message>
        <source>Record Screen</source>
        <translation>录制屏幕</translation>
    </message>
    <message>
        <source>Capture Area</source>
        <translation>截取区域</translation>
    </message>
    <message>
        <source>Capture Window</source>
        <translation>截取窗口</translation>
    </message>
    <message>
        <source>Capture Fullscreen</source>
        <translation>截取全屏</translation>
    </message>
    <message>
        <source>Capture Scrolling</source>
        <translation>滚动截图</translation>
    </message>
    <message>
        <source>Global shortcuts are not available on this desktop.</source>
        <translation>此桌面不支持全局快捷键。</translation>
    </message>
    <message>
        <source>Capture Text</source>
        <translation>识别文字</translation>
    </message>
    <message>
        <source>Capture Previous Area</source>
        <translation>截取上次区域</translation>
    </message>
</context>
<context>
    <name>nubo::ShotImageFile</name>
    <message>
        <source>Could not read “%1”: %2.</source>
        <translation>无法读取“%1”：%2。</translation>
    </message>
</context>
<context>
    <name>nubo::ShotNotifications</name>
    <message>
        <source>Saved to %1</source>
        <translation>已保存到 %1</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>在文件夹中显示</translation>
    </message>
</context>
<context>
    <name>nubo::ShotOutputActions</name>
    <message>
        <source>Upload</source>
        <translation>上传</translation>
    </message>
    <message>
        <source>Upload outcome unknown. Retry may create a duplicate upload.</source>
        <translation>上传结果未知。重试可能会产生重复上传。</translation>
    </message>
    <message>
        <source>Retry upload</source>
        <translation>重新上传</translation>
    </message>
    <message>
        <source>Could Not Copy Screenshot</source>
        <translation>无法复制截图</translation>
    </message>
    <message>
        <source>Could Not Save Screenshot</source>
        <translation>无法保存截图</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>Could Not Drag Screenshot</source>
        <translation>无法拖出截图</translation>
    </message>
    <message>
        <source>Could Not Open Screenshot</source>
        <translation>无法打开截图</translation>
    </message>
    <message>
        <source>Could Not Share Screenshot</source>
        <translation>无法分享截图</translation>
    </message>
    <message>
        <source>Copied %1</source>
        <translation>已复制 %1</translation>
    </message>
    <message>
        <source>Filebin is public: anyone with the link can see this shot.</source>
        <translation>Filebin 是公开的：任何拥有链接的人都能看到此截图。</translation>
    </message>
</context>
<context>
    <name>nubo::ShotPinWindow</name>
    <message>
        <source>Pinned Shot</source>
        <translation>钉住的截图</translation>
    </message>
    <message>
        <source>Drag to move · Wheel: Zoom · Ctrl+Wheel: Opacity · Double-Click or Esc: Close</source>
        <translation>拖动以移动 · 滚轮：缩放 · Ctrl+滚轮：不透明度 · 双击或 Esc：关闭</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Open in Editor</source>
        <translation>在编辑器中打开</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>不透明度</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>nubo::ShotPins</name>
    <message>
        <source>Could Not Save Screenshot</source>
        <translation>无法保存截图</translation>
    </message>
    <message>
        <source>Pinned as a normal window</source>
        <translation>已作为普通窗口钉住</translation>
    </message>
    <message>
        <source>This desktop does not let Nubo Shot keep a pinned shot above other windows; it stays where the desktop puts it.</source>
        <translation>此桌面不允许 Nubo Shot 将钉住的截图保持在其他窗口之上；它会停留在桌面放置的位置。</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingControlBar</name>
    <message>
        <source>Pause Recording</source>
        <translation>暂停录制</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>停止录制</translation>
    </message>
    <message>
        <source>Cancel Recording</source>
        <translation>取消录制</translation>
    </message>
    <message>
        <source>Resume Recording</source>
        <translation>继续录制</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingControls</name>
    <message>
        <source>No camera is available.</source>
        <translation>没有可用的摄像头。</translation>
    </message>
    <message>
        <source>System Audio</source>
        <translation>系统声音</translation>
    </message>
    <message>
        <source>Record what the computer plays</source>
        <translation>录制电脑播放的声音</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>麦克风</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>摄像头</translation>
    </message>
    <message>
        <source>Show your camera as a round bubble in the recording</source>
        <translation>在录制中以圆形气泡显示摄像头画面</translation>
    </message>
    <message>
        <source>Cursor</source>
        <translation>光标</translation>
    </message>
    <message>
        <source>Show the pointer in the recording</source>
        <translation>在录制中显示鼠标指针</translation>
    </message>
    <message>
        <source>Clicks</source>
        <translation>点击</translation>
    </message>
    <message>
        <source>Ring every click in the recording</source>
        <translation>在录制中用圆环标出每次点击</translation>
    </message>
    <message>
        <source>30 fps</source>
        <translation>30 帧/秒</translation>
    </message>
    <message>
        <source>60 fps</source>
        <translation>60 帧/秒</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>标准</translation>
    </message>
    <message>
        <source>Native</source>
        <translation>原生</translation>
    </message>
    <message>
        <source>One pixel a point: smaller files on HiDPI screens</source>
        <translation>每点一个像素：在高分屏上文件更小</translation>
    </message>
    <message>
        <source>Every pixel of the screen</source>
        <translation>屏幕的每个像素</translation>
    </message>
    <message>
        <source>Default microphone</source>
        <translation>默认麦克风</translation>
    </message>
    <message>
        <source>%1 (not connected)</source>
        <translation>%1（未连接）</translation>
    </message>
    <message>
        <source>HEVC needs a hardware video encoder (VAAPI or NVENC), and this computer has none.</source>
        <translation>HEVC 需要硬件视频编码器（VAAPI 或 NVENC），而这台电脑没有。</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingCountdown</name>
    <message>
        <source>Esc: Cancel</source>
        <translation>Esc：取消</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingFlow</name>
    <message>
        <source>This desktop cannot be recorded by Nubo Shot yet.</source>
        <translation>Nubo Shot 暂时无法录制此桌面。</translation>
    </message>
    <message>
        <source>Could Not Record Screen</source>
        <translation>无法录制屏幕</translation>
    </message>
    <message>
        <source>window picked at the start</source>
        <translation>开始时选择的窗口</translation>
    </message>
    <message>
        <source>Recording the screen</source>
        <translation>正在录制屏幕</translation>
    </message>
    <message>
        <source>Recording saved</source>
        <translation>录制已保存</translation>
    </message>
</context>
<context>
    <name>nubo::ShotRecordingOptionsBar</name>
    <message>
        <source>Cancel (Esc)</source>
        <translation>取消 (Esc)</translation>
    </message>
    <message>
        <source>Stop from the menu</source>
        <translation>从菜单停止</translation>
    </message>
    <message>
        <source>Start Recording</source>
        <translation>开始录制</translation>
    </message>
    <message>
        <source>Start (Return)</source>
        <translation>开始（回车）</translation>
    </message>
    <message>
        <source>Or by the shortcut, or with “nuboshot capture recording”</source>
        <translation>或使用快捷键，或运行“nuboshot capture recording”</translation>
    </message>
</context>
<context>
    <name>nubo::ShotReviewTimeline</name>
    <message>
        <source>Blur %1</source>
        <translation>模糊 %1</translation>
    </message>
</context>
<context>
    <name>nubo::ShotReviewWindow</name>
    <message>
        <source>%1 — Review</source>
        <translation>%1 — 审阅</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>播放</translation>
    </message>
    <message>
        <source>Play or pause (Space)</source>
        <translation>播放或暂停（空格）</translation>
    </message>
    <message>
        <source>Split</source>
        <translation>分割</translation>
    </message>
    <message>
        <source>Split at the playhead (S)</source>
        <translation>在播放头处分割 (S)</translation>
    </message>
    <message>
        <source>Remove Segment</source>
        <translation>删除片段</translation>
    </message>
    <message>
        <source>Cut out the segment under the playhead (Delete)</source>
        <translation>剪掉播放头所在的片段 (Delete)</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>模糊</translation>
    </message>
    <message>
        <source>Drag over the picture to blur a region (B)</source>
        <translation>在画面上拖动以模糊一个区域 (B)</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>裁剪</translation>
    </message>
    <message>
        <source>Crop the picture (C)</source>
        <translation>裁剪画面 (C)</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>静音</translation>
    </message>
    <message>
        <source>Export without sound (M)</source>
        <translation>导出时不含声音 (M)</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Undo (Ctrl+Z)</source>
        <translation>撤销 (Ctrl+Z)</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>重做</translation>
    </message>
    <message>
        <source>Redo (Ctrl+Shift+Z)</source>
        <translation>重做 (Ctrl+Shift+Z)</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>在文件夹中显示</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>另存为…</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>导出</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>%1 × %2 · about %3</source>
        <translation>%1 × %2 · 约 %3</translation>
    </message>
    <message>
        <source>Save Edited Recording</source>
        <translation>保存编辑后的录制</translation>
    </message>
    <message>
        <source>MPEG-4 movie (*.mp4)</source>
        <translation>MPEG-4 视频 (*.mp4)</translation>
    </message>
    <message>
        <source>Export cancelled</source>
        <translation>导出已取消</translation>
    </message>
    <message>
        <source>Export failed</source>
        <translation>导出失败</translation>
    </message>
    <message>
        <source>Export Failed</source>
        <translation>导出失败</translation>
    </message>
    <message>
        <source>Discard Edits?</source>
        <translation>放弃编辑？</translation>
    </message>
    <message>
        <source>Your edits to “%1” have not been exported.</source>
        <translation>您对“%1”的编辑尚未导出。</translation>
    </message>
    <message>
        <source>The recording itself stays as it is.</source>
        <translation>录制文件本身保持不变。</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>放弃</translation>
    </message>
    <message>
        <source>Copied “%1”</source>
        <translation>已复制“%1”</translation>
    </message>
    <message>
        <source>Exporting “%1”…</source>
        <translation>正在导出“%1”…</translation>
    </message>
    <message>
        <source>Exported “%1”</source>
        <translation>已导出“%1”</translation>
    </message>
    <message>
        <source>Export format and size</source>
        <translation>导出格式和尺寸</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>格式</translation>
    </message>
    <message>
        <source>MP4 Movie</source>
        <translation>MP4 影片</translation>
    </message>
    <message>
        <source>GIF</source>
        <translation>GIF</translation>
    </message>
    <message>
        <source>Animated WebP</source>
        <translation>动画 WebP</translation>
    </message>
    <message>
        <source>Frame Rate</source>
        <translation>帧率</translation>
    </message>
    <message>
        <source>%1 fps</source>
        <translation>%1 帧/秒</translation>
    </message>
    <message>
        <source>Width · Never upscaled</source>
        <translation>宽度 · 从不放大</translation>
    </message>
    <message>
        <source>Original (%1 px)</source>
        <translation>原始（%1 像素）</translation>
    </message>
    <message>
        <source>%1 px</source>
        <translation>%1 像素</translation>
    </message>
    <message>
        <source>MP4 · %1</source>
        <translation>MP4 · %1</translation>
    </message>
    <message>
        <source>%1 · %2 fps · %3 px</source>
        <translation>%1 · %2 帧/秒 · %3 像素</translation>
    </message>
    <message>
        <source>WebP</source>
        <translation>WebP</translation>
    </message>
    <message>
        <source>GIF animation (*.gif)</source>
        <translation>GIF 动画 (*.gif)</translation>
    </message>
    <message>
        <source>Animated WebP (*.webp)</source>
        <translation>动画 WebP (*.webp)</translation>
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
        <translation>质量(&amp;Q)：</translation>
    </message>
    <message>
        <source>S&amp;cale:</source>
        <translation>缩放(&amp;C)：</translation>
    </message>
</context>
<context>
    <name>nubo::ShotScrollingPanel</name>
    <message>
        <source>Scrolling Capture</source>
        <translation>滚动截图</translation>
    </message>
    <message>
        <source>Return: Done · Esc: Cancel</source>
        <translation>回车：完成 · Esc：取消</translation>
    </message>
    <message>
        <source>Auto-scroll</source>
        <translation>自动滚动</translation>
    </message>
    <message>
        <source>Scroll to the end by itself; any key or click stops</source>
        <translation>自动滚动到底；按任意键或点击即停止</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完成</translation>
    </message>
    <message>
        <source>Scroll down to the end, or use Auto-scroll.</source>
        <translation>向下滚动到底，或使用“自动滚动”。</translation>
    </message>
    <message>
        <source>%1 px tall</source>
        <translation>高 %1 px</translation>
    </message>
    <message>
        <source>Stop Auto-scroll</source>
        <translation>停止自动滚动</translation>
    </message>
</context>
<context>
    <name>nubo::ShotScrollingSession</name>
    <message>
        <source>this desktop offers no region streams</source>
        <translation>此桌面不提供区域视频流</translation>
    </message>
    <message>
        <source>Auto-scroll is not available on this desktop: scroll by hand.</source>
        <translation>此桌面不支持自动滚动：请手动滚动。</translation>
    </message>
    <message>
        <source>Scroll back up a little</source>
        <translation>向上滚回一点</translation>
    </message>
    <message>
        <source>Auto-scrolling… Any key or click stops it.</source>
        <translation>正在自动滚动… 按任意键或点击即停止。</translation>
    </message>
    <message>
        <source>Keep scrolling down; Done when you reach the end.</source>
        <translation>继续向下滚动；到底后点击“完成”。</translation>
    </message>
    <message>
        <source>Reached the size limit.</source>
        <translation>已达到大小上限。</translation>
    </message>
    <message>
        <source>The scrolling capture reached its size limit and stopped at %1 pixels.</source>
        <translation>滚动截图已达到大小上限，停在 %1 像素。</translation>
    </message>
    <message>
        <source>Auto-scroll stopped.</source>
        <translation>自动滚动已停止。</translation>
    </message>
    <message>
        <source>Auto-scroll reached the end: press Done.</source>
        <translation>自动滚动已到底：请点击“完成”。</translation>
    </message>
    <message>
        <source>this desktop cannot scroll for us</source>
        <translation>此桌面无法代为滚动</translation>
    </message>
    <message>
        <source>Auto-scroll could not start: %1.</source>
        <translation>无法开始自动滚动：%1。</translation>
    </message>
</context>
<context>
    <name>nubo::ShotSensitiveTextDialog</name>
    <message>
        <source>E-mail address</source>
        <translation>电子邮件地址</translation>
    </message>
    <message>
        <source>Phone number</source>
        <translation>电话号码</translation>
    </message>
    <message>
        <source>IP address</source>
        <translation>IP 地址</translation>
    </message>
    <message>
        <source>Card number</source>
        <translation>卡号</translation>
    </message>
    <message>
        <source>Key or token</source>
        <translation>密钥或令牌</translation>
    </message>
    <message>
        <source>Private key</source>
        <translation>私钥</translation>
    </message>
    <message>
        <source>Hide Sensitive Text</source>
        <translation>隐藏敏感文字</translation>
    </message>
    <message>
        <source>The ticked text is pixelated. Untick what may stay readable.</source>
        <translation>勾选的文字将被打码。取消勾选可保持可读的内容。</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>隐藏</translation>
    </message>
</context>
<context>
    <name>nubo::ShotSettingsBackup</name>
    <message>
        <source>not a setting of this version</source>
        <translation>不是此版本的设置</translation>
    </message>
    <message>
        <source>not true or false</source>
        <translation>不是 true 或 false</translation>
    </message>
    <message>
        <source>not a text</source>
        <translation>不是文本</translation>
    </message>
    <message>
        <source>not png, jpeg, heic or webp</source>
        <translation>不是 png、jpeg、heic 或 webp</translation>
    </message>
    <message>
        <source>not auto, r2 or filebin</source>
        <translation>不是 auto、r2 或 filebin</translation>
    </message>
    <message>
        <source>not a capture of this version</source>
        <translation>不是此版本的截图方式</translation>
    </message>
    <message>
        <source>not a key</source>
        <translation>不是按键组合</translation>
    </message>
    <message>
        <source>not a tool of this version</source>
        <translation>不是此版本的工具</translation>
    </message>
    <message>
        <source>not a style</source>
        <translation>不是样式</translation>
    </message>
    <message>
        <source>not a plain value</source>
        <translation>不是简单值</translation>
    </message>
    <message>
        <source>no settings in it</source>
        <translation>其中没有设置</translation>
    </message>
    <message>
        <source>The file is not a Nubo Shot settings backup: nothing was restored.</source>
        <translation>该文件不是 Nubo Shot 设置备份：未恢复任何内容。</translation>
    </message>
    <message>
        <source>secrets are never restored from a file</source>
        <translation>密钥从不从文件恢复</translation>
    </message>
    <message>
        <source>“%1” is not a file.</source>
        <translation>“%1”不是文件。</translation>
    </message>
    <message>
        <source>“%1” cannot be read: %2.</source>
        <translation>无法读取“%1”：%2。</translation>
    </message>
    <message>
        <source> The backup comes from a newer Nubo Shot.</source>
        <translation>该备份来自较新版本的 Nubo Shot。</translation>
    </message>
    <message>
        <source> Skipped: </source>
        <translation>已跳过：</translation>
    </message>
    <message>
        <source>The file is not a settings backup, or it is damaged (%1): nothing was restored.</source>
        <translation>该文件不是设置备份，或已损坏（%1）：未恢复任何内容。</translation>
    </message>
    <message>
        <source>“%1” is larger than any settings backup (over 1 MiB): nothing was restored.</source>
        <translation>“%1”比任何设置备份都大（超过 1 MiB）：未恢复任何内容。</translation>
    </message>
    <message numerus="yes">
        <source>%n setting(s) restored.</source>
        <translation>
            <numerusform>已恢复 %n 项设置。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nubo::ShotSettingsPage</name>
    <message>
        <source>Backup</source>
        <translation>备份</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>编辑器</translation>
    </message>
    <message>
        <source>General</source>
        <translation>常规</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>输出</translation>
    </message>
    <message>
        <source>Permissions</source>
        <translation>权限</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>录制</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>快捷键</translation>
    </message>
    <message>
        <source>Uploads</source>
        <translation>上传</translation>
    </message>
</context>
<context>
    <name>nubo::ShotSettingsWindow</name>
    <message>
        <source>Nubo Shot Settings</source>
        <translation>Nubo Shot 设置</translation>
    </message>
</context>
<context>
    <name>nubo::ShotShare</name>
    <message>
        <source>The shot could not be prepared for sharing.</source>
        <translation>无法准备截图以供分享。</translation>
    </message>
    <message>
        <source>No application could be offered to open the shot.</source>
        <translation>没有可用于打开截图的应用。</translation>
    </message>
</context>
<context>
    <name>nubo::ShotShortcutField</name>
    <message>
        <source>Click, then press the keys</source>
        <translation>点击后按下按键</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>No shortcut for this</source>
        <translation>不为此设置快捷键</translation>
    </message>
    <message>
        <source>%1 already does %2.</source>
        <translation>%1 已用于“%2”。</translation>
    </message>
</context>
<context>
    <name>nubo::ShotStatusMenu</name>
    <message>
        <source>Record Screen</source>
        <translation>录制屏幕</translation>
    </message>
    <message>
        <source>Record Window</source>
        <translation>录制窗口</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>停止录制</translation>
    </message>
    <message>
        <source>Cancel Recording</source>
        <translation>取消录制</translation>
    </message>
    <message>
        <source>Open Image in Nubo Shot…</source>
        <translation>在 Nubo Shot 中打开图片…</translation>
    </message>
    <message>
        <source>Recent</source>
        <translation>最近</translation>
    </message>
    <message>
        <source>Recent Uploads…</source>
        <translation>最近上传…</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>设置…</translation>
    </message>
    <message>
        <source>Quit Nubo Shot</source>
        <translation>退出 Nubo Shot</translation>
    </message>
    <message>
        <source>Copied image</source>
        <translation>已复制的图片</translation>
    </message>
    <message>
        <source>No recent images</source>
        <translation>没有最近的图片</translation>
    </message>
    <message>
        <source>Clear Recent</source>
        <translation>清除最近记录</translation>
    </message>
    <message>
        <source>No windows to record</source>
        <translation>没有可录制的窗口</translation>
    </message>
    <message>
        <source>Saving the recording…</source>
        <translation>正在保存录制…</translation>
    </message>
    <message>
        <source>Resume Recording</source>
        <translation>继续录制</translation>
    </message>
    <message>
        <source>Pause Recording</source>
        <translation>暂停录制</translation>
    </message>
    <message>
        <source>d MMM, HH:mm</source>
        <translation>M月d日 HH:mm</translation>
    </message>
    <message>
        <source>Delay</source>
        <translation>延时</translation>
    </message>
    <message>
        <source>No Delay</source>
        <translation>不延时</translation>
    </message>
    <message numerus="yes">
        <source>%n second(s)</source>
        <translation>
            <numerusform>%n 秒</numerusform>
        </translation>
    </message>
    <message>
        <source>Pinned</source>
        <translation>已钉住</translation>
    </message>
    <message>
        <source>Close All Pins</source>
        <translation>关闭所有钉住的截图</translation>
    </message>
    <message>
        <source>Cancel Delayed Capture (%1 s)</source>
        <translation>取消延时截图（%1 秒）</translation>
    </message>
</context>
<context>
    <name>nubo::ShotStyleBar</name>
    <message>
        <source>Style</source>
        <translation>样式</translation>
    </message>
    <message>
        <source>Other Colour…</source>
        <translation>其他颜色…</translation>
    </message>
    <message>
        <source>Other Colour</source>
        <translation>其他颜色</translation>
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
        <translation>选择表情</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>颜色</translation>
    </message>
    <message>
        <source>Drag the frame or its handles; Return crops</source>
        <translation>拖动边框或其控制柄；按回车裁剪</translation>
    </message>
    <message>
        <source>Click to copy a colour and use it for drawing</source>
        <translation>点击取色并用于绘制</translation>
    </message>
    <message>
        <source>Click to select, drag to move; Shift adds to the selection</source>
        <translation>点击选择，拖动移动；按住 Shift 添加到选择</translation>
    </message>
    <message>
        <source>&amp;Width</source>
        <translation>宽度(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Size</source>
        <translation>大小(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Outline</source>
        <translation>轮廓(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Emoji</source>
        <translation>表情(&amp;E)</translation>
    </message>
    <message>
        <source>Drag over the words to select them; Ctrl+C copies them</source>
        <translation>拖过词语即可选中；Ctrl+C 复制</translation>
    </message>
</context>
<context>
    <name>nubo::ShotTextLayer</name>
    <message>
        <source>No text found in this shot</source>
        <translation>此截图中未找到文字</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Code copied</source>
        <translation>已复制码内容</translation>
    </message>
    <message>
        <source>Open Link</source>
        <translation>打开链接</translation>
    </message>
    <message>
        <source>No application opens this link</source>
        <translation>没有应用程序能打开此链接</translation>
    </message>
</context>
<context>
    <name>nubo::ShotTools</name>
    <message>
        <source>Crop</source>
        <translation>裁剪</translation>
    </message>
    <message>
        <source>Add image</source>
        <translation>添加图片</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>选择</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>矩形</translation>
    </message>
    <message>
        <source>Filled rectangle</source>
        <translation>实心矩形</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>椭圆</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>直线</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>箭头</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文字</translation>
    </message>
    <message>
        <source>Blur / Censor</source>
        <translation>模糊 / 遮盖</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>编号</translation>
    </message>
    <message>
        <source>Draw</source>
        <translation>绘制</translation>
    </message>
    <message>
        <source>Highlighter</source>
        <translation>荧光笔</translation>
    </message>
    <message>
        <source>Emoji</source>
        <translation>表情符号</translation>
    </message>
    <message>
        <source>Pick color</source>
        <translation>取色</translation>
    </message>
    <message>
        <source>Select text</source>
        <translation>选择文字</translation>
    </message>
</context>
<context>
    <name>nubo::ShotUpload</name>
    <message>
        <source>Upload to Filebin</source>
        <translation>上传到 Filebin</translation>
    </message>
    <message>
        <source>Uploading… %1%</source>
        <translation>正在上传… %1%</translation>
    </message>
    <message>
        <source>Uploading…</source>
        <translation>正在上传…</translation>
    </message>
    <message>
        <source>Upload complete · Link copied</source>
        <translation>上传完成 · 链接已复制</translation>
    </message>
    <message>
        <source>Upload complete · Key copied</source>
        <translation>上传完成 · 键已复制</translation>
    </message>
    <message>
        <source>Upload failed · Retry</source>
        <translation>上传失败 · 重试</translation>
    </message>
    <message>
        <source>Upload uncertain · Retry</source>
        <translation>上传结果不确定 · 重试</translation>
    </message>
    <message>
        <source>Upload to R2</source>
        <translation>上传到 R2</translation>
    </message>
</context>
<context>
    <name>nubo::ShotUploadHistory</name>
    <message>
        <source>d MMM, HH:mm</source>
        <translation>M月d日 HH:mm</translation>
    </message>
    <message>
        <source>Recent Uploads</source>
        <translation>最近上传</translation>
    </message>
    <message>
        <source>Delete from Filebin</source>
        <translation>从 Filebin 删除</translation>
    </message>
    <message>
        <source>Delete “%1” from Filebin?</source>
        <translation>从 Filebin 删除“%1”？</translation>
    </message>
    <message>
        <source>Its link stops working for everyone.</source>
        <translation>其链接将对所有人失效。</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Uploaded</source>
        <translation>上传时间</translation>
    </message>
    <message>
        <source>Kept until</source>
        <translation>保留至</translation>
    </message>
    <message>
        <source>Link or key</source>
        <translation>链接或键</translation>
    </message>
    <message>
        <source>Copy Link</source>
        <translation>复制链接</translation>
    </message>
    <message>
        <source>Open Link</source>
        <translation>打开链接</translation>
    </message>
    <message>
        <source>Copied %1</source>
        <translation>已复制 %1</translation>
    </message>
    <message>
        <source>Nothing uploaded yet.</source>
        <translation>尚未上传任何内容。</translation>
    </message>
    <message>
        <source>Deleted</source>
        <translation>已删除</translation>
    </message>
    <message>
        <source>Expired</source>
        <translation>已过期</translation>
    </message>
    <message>
        <source>Until deleted</source>
        <translation>直到删除</translation>
    </message>
    <message>
        <source>Bucket “%1”</source>
        <translation>存储桶“%1”</translation>
    </message>
    <message>
        <source>Filebin</source>
        <translation>Filebin</translation>
    </message>
    <message>
        <source>Objects in a bucket are deleted with the bucket&apos;s own tools</source>
        <translation>存储桶中的对象需使用存储桶自己的工具删除</translation>
    </message>
    <message>
        <source>Deleting %1…</source>
        <translation>正在删除 %1…</translation>
    </message>
    <message>
        <source>Deleted %1 from Filebin.</source>
        <translation>已从 Filebin 删除 %1。</translation>
    </message>
</context>
<context>
    <name>nubo::ShotUploadStatus</name>
    <message>
        <source>The shot could not be read for the upload: %1.</source>
        <translation>无法读取截图以上传：%1。</translation>
    </message>
</context>
<context>
    <name>nubo::ShotZoomControls</name>
    <message>
        <source>Zoom Out (Ctrl+-)</source>
        <translation>缩小 (Ctrl+-)</translation>
    </message>
    <message>
        <source>Actual Size (Ctrl+0)</source>
        <translation>实际大小 (Ctrl+0)</translation>
    </message>
    <message>
        <source>Zoom In (Ctrl++)</source>
        <translation>放大 (Ctrl++)</translation>
    </message>
    <message>
        <source>Fit in Window (Ctrl+9)</source>
        <translation>适应窗口 (Ctrl+9)</translation>
    </message>
</context>
<context>
    <name>nubo::TextRecognition</name>
    <message>
        <source>Text in “%1” cannot be recognised: its data is not installed (install the package tesseract-ocr-%2).</source>
        <translation>无法识别“%1”文字：其数据未安装（请安装 tesseract-ocr-%2 软件包）。</translation>
    </message>
    <message>
        <source>The text recognition engine could not start with “%1”.</source>
        <translation>文字识别引擎无法以“%1”启动。</translation>
    </message>
    <message>
        <source>The text could not be recognised.</source>
        <translation>无法识别文字。</translation>
    </message>
</context>
<context>
    <name>nubo::TrayApplication</name>
    <message>
        <source>Open Image in Nubo Shot</source>
        <translation>在 Nubo Shot 中打开图片</translation>
    </message>
    <message>
        <source>Images (*.png *.jpg *.jpeg *.webp *.bmp *.gif)</source>
        <translation>图片 (*.png *.jpg *.jpeg *.webp *.bmp *.gif)</translation>
    </message>
    <message>
        <source>Could Not Open Image</source>
        <translation>无法打开图片</translation>
    </message>
    <message>
        <source>Stop the recording and quit?</source>
        <translation>停止录制并退出？</translation>
    </message>
    <message>
        <source>The recording is saved before Nubo Shot quits.</source>
        <translation>Nubo Shot 会在退出前保存录制。</translation>
    </message>
    <message>
        <source>Stop and Quit</source>
        <translation>停止并退出</translation>
    </message>
    <message>
        <source>Nubo Shot — saving the recording</source>
        <translation>Nubo Shot — 正在保存录制</translation>
    </message>
    <message>
        <source>Open Shortcuts Settings</source>
        <translation>打开快捷键设置</translation>
    </message>
    <message>
        <source>Recovered an interrupted recording</source>
        <translation>已恢复一段中断的录制</translation>
    </message>
    <message>
        <source>An interrupted recording could not be kept</source>
        <translation>无法保留一段中断的录制</translation>
    </message>
    <message numerus="yes">
        <source>%n shortcut(s) do not work</source>
        <translation>
            <numerusform>%n 个快捷键无法使用</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 stopped before its first picture was saved; nothing of it could be kept.</source>
        <translation>%1 在保存第一帧之前就停止了；无法保留任何内容。</translation>
    </message>
    <message numerus="yes">
        <source>%n upload(s) were interrupted</source>
        <translation>
            <numerusform>%n 个上传被中断</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 may not have arrived. Upload it again from its editor, or see Recent Uploads.</source>
        <translation>%1 可能未送达。请在其编辑器中重新上传，或查看“最近上传”。</translation>
    </message>
    <message>
        <source>Nubo Shot — paused at %1</source>
        <translation>Nubo Shot — 已暂停于 %1</translation>
    </message>
    <message>
        <source>Nubo Shot — recording %1</source>
        <translation>Nubo Shot — 正在录制 %1</translation>
    </message>
    <message numerus="yes">
        <source>Nubo Shot — capturing in %n second(s)</source>
        <translation>
            <numerusform>Nubo Shot — %n 秒后截图</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nubo::Uploader</name>
    <message>
        <source>The S3 destination is not set up: give its endpoint, region, bucket and access key id in the Uploads settings.</source>
        <translation>S3 目标尚未配置：请在“上传”设置中填写端点、区域、存储桶和访问密钥 ID。</translation>
    </message>
    <message>
        <source>The keyring holds no S3 secret for the access key id “%1”: enter it in the Uploads settings.</source>
        <translation>密钥环中没有访问密钥 ID“%1”的 S3 密钥：请在“上传”设置中输入。</translation>
    </message>
    <message>
        <source>The Filebin server “%1” is not an http or https address.</source>
        <translation>Filebin 服务器“%1”不是 http 或 https 地址。</translation>
    </message>
    <message>
        <source>The upload was cancelled.</source>
        <translation>上传已取消。</translation>
    </message>
    <message>
        <source>The upload to %1 failed: %2.</source>
        <translation>上传到 %1 失败：%2。</translation>
    </message>
    <message>
        <source>Only Filebin uploads can be deleted from here.</source>
        <translation>只有 Filebin 上传可以在这里删除。</translation>
    </message>
    <message>
        <source>Filebin could not be reached: %1.</source>
        <translation>无法连接 Filebin：%1。</translation>
    </message>
</context>
<context>
    <name>nubo::UploadsSettingsPage</name>
    <message>
        <source>Destination</source>
        <translation>目标</translation>
    </message>
    <message>
        <source>Automatic: the bucket when it is set up, else Filebin</source>
        <translation>自动：已配置时用存储桶，否则用 Filebin</translation>
    </message>
    <message>
        <source>S3-compatible bucket (R2)</source>
        <translation>兼容 S3 的存储桶 (R2)</translation>
    </message>
    <message>
        <source>Filebin</source>
        <translation>Filebin</translation>
    </message>
    <message>
        <source>Upload to:</source>
        <translation>上传到：</translation>
    </message>
    <message>
        <source>A new bin for every upload</source>
        <translation>每次上传新建一个 bin</translation>
    </message>
    <message>
        <source>S3-compatible bucket</source>
        <translation>兼容 S3 的存储桶</translation>
    </message>
    <message>
        <source>Key prefix:</source>
        <translation>键前缀：</translation>
    </message>
    <message>
        <source>Optional, such as screenshots/</source>
        <translation>可选，例如 screenshots/</translation>
    </message>
    <message>
        <source>Public URL:</source>
        <translation>公开 URL：</translation>
    </message>
    <message>
        <source>Optional, such as https://shots.example.com</source>
        <translation>可选，例如 https://shots.example.com</translation>
    </message>
    <message>
        <source>Bucket in the host name (virtual-hosted style)</source>
        <translation>存储桶位于主机名中（virtual-hosted 风格）</translation>
    </message>
    <message>
        <source>Access key ID:</source>
        <translation>访问密钥 ID：</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>清除</translation>
    </message>
    <message>
        <source>Secret access key:</source>
        <translation>秘密访问密钥：</translation>
    </message>
    <message>
        <source>Try it</source>
        <translation>测试</translation>
    </message>
    <message>
        <source>Test Upload</source>
        <translation>测试上传</translation>
    </message>
    <message>
        <source>Uploads a small picture to the destination above</source>
        <translation>向上面的目标上传一张小图片</translation>
    </message>
    <message>
        <source>The settings could not be kept: %1</source>
        <translation>无法保存设置：%1</translation>
    </message>
    <message>
        <source>Enter the access key ID first.</source>
        <translation>请先输入访问密钥 ID。</translation>
    </message>
    <message>
        <source>Asking the keyring…</source>
        <translation>正在查询密钥环…</translation>
    </message>
    <message>
        <source>Set · type to replace</source>
        <translation>已设置 · 输入以替换</translation>
    </message>
    <message>
        <source>Kept in the desktop&apos;s keyring.</source>
        <translation>已保存在桌面的密钥环中。</translation>
    </message>
    <message>
        <source>Not set</source>
        <translation>未设置</translation>
    </message>
    <message>
        <source>Not set: uploads to the bucket need it.</source>
        <translation>未设置：上传到存储桶需要它。</translation>
    </message>
    <message>
        <source>Not available</source>
        <translation>不可用</translation>
    </message>
    <message>
        <source>Storing in the keyring…</source>
        <translation>正在存入密钥环…</translation>
    </message>
    <message>
        <source>Uploading to the bucket…</source>
        <translation>正在上传到存储桶…</translation>
    </message>
    <message>
        <source>Uploading to Filebin…</source>
        <translation>正在上传到 Filebin…</translation>
    </message>
    <message>
        <source>Uploaded: %1</source>
        <translation>已上传：%1</translation>
    </message>
    <message>
        <source>Links are copied after upload. Without a public URL, object keys are copied.</source>
        <translation>上传后会复制链接。没有公开 URL 时复制对象键。</translation>
    </message>
    <message>
        <source>Filebin keeps files for about a week; anyone with the link can see them.</source>
        <translation>Filebin 会保留文件约一周；任何拥有链接的人都能看到。</translation>
    </message>
    <message>
        <source>Uploaded as %1 (no public URL, so this is the object key).</source>
        <translation>已上传为 %1（没有公开 URL，因此这是对象键）。</translation>
    </message>
    <message>
        <source>Server:</source>
        <translation>服务器：</translation>
    </message>
    <message>
        <source>Bin:</source>
        <translation>Bin：</translation>
    </message>
    <message>
        <source>Endpoint:</source>
        <translation>端点：</translation>
    </message>
    <message>
        <source>Region:</source>
        <translation>区域：</translation>
    </message>
    <message>
        <source>Bucket:</source>
        <translation>存储桶：</translation>
    </message>
    <message>
        <source>Failed.</source>
        <translation>失败。</translation>
    </message>
</context>
<context>
    <name>nubo::XcbConnection</name>
    <message>
        <source>The X display stores pixels at a depth of %1 bits (%2 bits a pixel), which Nubo Shot cannot read; it reads depths 15, 16, 24, 30 and 32.</source>
        <translation>X 显示以 %1 位的色深存储像素（每像素 %2 位），Nubo Shot 无法读取；支持的色深为 15、16、24、30 和 32。</translation>
    </message>
    <message>
        <source>There is not enough memory to read the screen.</source>
        <translation>内存不足，无法读取屏幕。</translation>
    </message>
    <message>
        <source>The X server sent %1 bytes of pixels where %2 were asked for.</source>
        <translation>X 服务器发送了 %1 字节像素数据，而请求的是 %2 字节。</translation>
    </message>
    <message>
        <source>The screen could not be read: %1.</source>
        <translation>无法读取屏幕：%1。</translation>
    </message>
</context>
<context>
    <name>nubo::XcbGlobalShortcuts</name>
    <message>
        <source>The shortcut %1 is not on this keyboard.</source>
        <translation>此键盘上没有快捷键 %1。</translation>
    </message>
    <message>
        <source>The shortcut %1 is used by another program.</source>
        <translation>快捷键 %1 已被其他程序占用。</translation>
    </message>
</context>
</TS>
