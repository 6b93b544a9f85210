#include "recording/ShotRecordingControls.h"

#include "core/Error.h"
#include "core/Settings.h"
#include "style/ShotIcons.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QFutureWatcher>
#include <QPointer>
#include <QScopedValueRollback>
#include <QStandardItemModel>
#include <QToolButton>
#include <QtConcurrent>

namespace nubo {

QString ShotRecordingProblems::microphone(const RecordingCapabilities& capabilities)
{
    return capabilities.supportsMicrophone
               ? QString()
               : RecordingError::describe(RecordingError::Code::microphoneUnsupported);
}

QString ShotRecordingProblems::clickHighlight(const RecordingCapabilities& capabilities)
{
    return capabilities.supportsClickHighlight
               ? QString()
               : RecordingError::describe(RecordingError::Code::clickHighlightUnsupported,
                                          capabilities.clickHighlightProblem);
}

QString ShotRecordingProblems::hevc(const RecordingCapabilities& capabilities)
{
    return capabilities.supportsHEVC
               ? QString()
               : QCoreApplication::translate("nubo::ShotRecordingControls", "HEVC needs a hardware video encoder (VAAPI or NVENC), and this "
                                "computer has none.");
}

QString ShotRecordingProblems::camera()
{
    return QCoreApplication::translate("nubo::ShotRecordingControls", "No camera is available.");
}

namespace {

// Marks a choice of a combo box unavailable, with its reason as tip.
void disableChoice(QComboBox* box, int index, const QString& reason)
{
    if (auto* model = qobject_cast<QStandardItemModel*>(box->model())) {
        model->item(index)->setEnabled(false);
    }
    box->setItemData(index, reason, Qt::ToolTipRole);
}

} // namespace

ShotRecordingControls::ShotRecordingControls(ShotPreferences& preferences,
                                             RecordingCapabilities capabilities, Look look,
                                             QWidget* parent)
    : QObject(parent), m_preferences(preferences), m_capabilities(capabilities), m_look(look),
      m_parent(parent)
{
    systemAudio = makeToggle(tr("System Audio"), QStringLiteral("audio-volume-high"),
                             QStringLiteral("systemAudio"));
    systemAudio->setToolTip(tr("Record what the computer plays"));
    microphone = makeToggle(tr("Microphone"), QStringLiteral("audio-input-microphone"),
                            QStringLiteral("microphone"));
    microphoneDevice = new QComboBox(parent);
    microphoneDevice->setObjectName(QStringLiteral("recording.microphoneDevice"));
    microphoneDevice->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    camera = makeToggle(tr("Camera"), QStringLiteral("camera-web"), QStringLiteral("camera"));
    camera->setToolTip(tr("Show your camera as a round bubble in the recording"));
    cameraDevice = new QComboBox(parent);
    cameraDevice->setObjectName(QStringLiteral("recording.cameraDevice"));
    cameraDevice->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    cursor = makeToggle(tr("Cursor"), QStringLiteral("input-mouse"), QStringLiteral("cursor"));
    cursor->setToolTip(tr("Show the pointer in the recording"));
    clicks = makeToggle(tr("Clicks"), QStringLiteral("nuboshot-click-highlight"),
                        QStringLiteral("clicks"));
    clicks->setToolTip(tr("Ring every click in the recording"));

    frameRate = new QComboBox(parent);
    frameRate->setObjectName(QStringLiteral("recording.frameRate"));
    frameRate->addItem(tr("30 fps"), QStringLiteral("fps30"));
    frameRate->addItem(tr("60 fps"), QStringLiteral("fps60"));
    resolution = new QComboBox(parent);
    resolution->setObjectName(QStringLiteral("recording.resolution"));
    resolution->addItem(tr("Standard"), QStringLiteral("standard"));
    resolution->addItem(tr("Native"), QStringLiteral("native"));
    resolution->setItemData(0, tr("One pixel a point: smaller files on HiDPI screens"),
                            Qt::ToolTipRole);
    resolution->setItemData(1, tr("Every pixel of the screen"), Qt::ToolTipRole);
    codec = new QComboBox(parent);
    codec->setObjectName(QStringLiteral("recording.codec"));
    codec->addItem(QStringLiteral("H.264"), QStringLiteral("h264"));
    codec->addItem(QStringLiteral("HEVC"), QStringLiteral("hevc"));

    // What this computer cannot record is shown, disabled, with the reason.
    if (const QString why = ShotRecordingProblems::microphone(m_capabilities); !why.isEmpty()) {
        microphone->setEnabled(false);
        microphone->setToolTip(why);
        microphoneDevice->setEnabled(false);
        microphoneDevice->setToolTip(why);
    }
    if (const QString why = ShotRecordingProblems::clickHighlight(m_capabilities);
        !why.isEmpty()) {
        clicks->setEnabled(false);
        clicks->setToolTip(why);
    }
    if (const QString why = ShotRecordingProblems::hevc(m_capabilities); !why.isEmpty()) {
        disableChoice(codec, 1, why);
        codec->setToolTip(why);
    }
    setCameras(CameraStreamSource::cameras());

    reload();
    for (QAbstractButton* button : {systemAudio, microphone, camera, cursor, clicks}) {
        connect(button, &QAbstractButton::toggled, this, &ShotRecordingControls::write);
    }
    for (QComboBox* box : {microphoneDevice, cameraDevice, frameRate, resolution, codec}) {
        connect(box, &QComboBox::currentIndexChanged, this, &ShotRecordingControls::write);
    }
}

QAbstractButton* ShotRecordingControls::makeToggle(const QString& text, const QString& icon,
                                                   const QString& name)
{
    QAbstractButton* button = nullptr;
    if (m_look == Look::toggles) {
        auto* tool = new QToolButton(m_parent);
        tool->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        tool->setAutoRaise(true);
        button = tool;
    } else {
        button = new QCheckBox(m_parent);
    }
    button->setText(text);
    // Light icons on the options bar's dark glass; the palette's in a form.
    button->setIcon(m_look == Look::toggles ? ShotIcons::icon(icon, QColor(Qt::white))
                                            : ShotIcons::icon(icon));
    button->setCheckable(true);
    button->setObjectName(QStringLiteral("recording.") + name);
    return button;
}

RecordingOptions ShotRecordingControls::options() const
{
    RecordingOptions options = RecordingOptions::read(m_preferences);
    // Nothing this computer cannot do is asked of the recorder.
    options.microphone = options.microphone && m_capabilities.supportsMicrophone;
    options.highlightsClicks = options.highlightsClicks && m_capabilities.supportsClickHighlight;
    if (!m_capabilities.supportsHEVC) {
        options.codec = RecordingCodec::h264;
    }
    options.camera = options.camera && m_hasCamera;
    return options;
}

void ShotRecordingControls::reload()
{
    const QScopedValueRollback<bool> loading(m_loading, true);
    const RecordingOptions o = options();
    systemAudio->setChecked(o.systemAudio);
    microphone->setChecked(o.microphone);
    camera->setChecked(o.camera);
    cameraDevice->setVisible(m_hasCamera && (m_look == Look::form || o.camera));
    cursor->setChecked(o.showsCursor);
    clicks->setChecked(o.highlightsClicks);
    frameRate->setCurrentIndex(o.frameRate == RecordingFrameRate::fps60 ? 1 : 0);
    resolution->setCurrentIndex(o.resolution == RecordingResolution::standard ? 0 : 1);
    codec->setCurrentIndex(o.codec == RecordingCodec::hevc ? 1 : 0);
    const int device = microphoneDevice->findData(o.microphoneDeviceID.value_or(QString()));
    microphoneDevice->setCurrentIndex(std::max(device, 0));
    microphoneDevice->setVisible(m_look == Look::form || o.microphone);
}

void ShotRecordingControls::setMicrophones(const QList<RecordingAudioDevice>& devices,
                                           const QString& problem)
{
    {
        const QScopedValueRollback<bool> loading(m_loading, true);
        microphoneDevice->clear();
        microphoneDevice->addItem(tr("Default microphone"), QString());
        for (const RecordingAudioDevice& device : devices) {
            microphoneDevice->addItem(device.description.isEmpty() ? device.name
                                                                    : device.description,
                                      device.name);
            microphoneDevice->setItemData(microphoneDevice->count() - 1, device.name,
                                          Qt::ToolTipRole);
        }
        // A chosen microphone that is not connected now stays chosen: the
        // default one is recorded instead, and the log says so.
        const auto stored = RecordingOptions::read(m_preferences).microphoneDeviceID;
        if (stored && microphoneDevice->findData(*stored) < 0) {
            microphoneDevice->addItem(tr("%1 (not connected)").arg(*stored), *stored);
        }
        if (!problem.isEmpty()) {
            microphoneDevice->setToolTip(problem);
        }
    }
    reload();
}

void ShotRecordingControls::setCameras(const QList<CameraDevice>& cameras)
{
    {
        const QScopedValueRollback<bool> loading(m_loading, true);
        m_cameras = cameras;
        const std::optional<CameraDevice> chosen = CameraStreamSource::chosen(m_preferences, cameras);
        if (chosen && !m_cameras.contains(*chosen)) {
            m_cameras.append(*chosen); // a stream file
        }
        m_hasCamera = chosen.has_value();
        cameraDevice->clear();
        for (const CameraDevice& device : std::as_const(m_cameras)) {
            cameraDevice->addItem(device.name, device.id);
            cameraDevice->setItemData(cameraDevice->count() - 1, device.id, Qt::ToolTipRole);
        }
        cameraDevice->setCurrentIndex(chosen ? std::max(0, cameraDevice->findData(chosen->id)) : -1);
        camera->setEnabled(m_hasCamera);
        cameraDevice->setEnabled(m_hasCamera);
        if (!m_hasCamera) {
            camera->setToolTip(ShotRecordingProblems::camera());
            cameraDevice->setToolTip(ShotRecordingProblems::camera());
        }
    }
    reload();
}

void ShotRecordingControls::loadMicrophones()
{
    using Listed = std::pair<QList<RecordingAudioDevice>, QString>;
    auto* watcher = new QFutureWatcher<Listed>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher] {
        watcher->deleteLater();
        const auto [devices, problem] = watcher->result();
        setMicrophones(devices, problem);
    });
    const bool server = m_capabilities.supportsMicrophone;
    watcher->setFuture(QtConcurrent::run([server]() -> Listed {
        if (!server) {
            return {};
        }
        try {
            return {RecordingAudioServer::microphones(), {}};
        } catch (const Error& error) {
            return {{}, error.message()};
        }
    }));
}

void ShotRecordingControls::write()
{
    if (m_loading) {
        return;
    }
    RecordingOptions o = RecordingOptions::read(m_preferences);
    o.systemAudio = systemAudio->isChecked();
    o.showsCursor = cursor->isChecked();
    // What is disabled here keeps what was stored (the reason may pass).
    if (microphone->isEnabled()) {
        o.microphone = microphone->isChecked();
        if (microphoneDevice->count() > 0) { // the list has come
            const QString device = microphoneDevice->currentData().toString();
            o.microphoneDeviceID =
                device.isEmpty() ? std::nullopt : std::optional<QString>(device);
        }
    }
    if (clicks->isEnabled()) {
        o.highlightsClicks = clicks->isChecked();
    }
    if (camera->isEnabled()) {
        o.camera = camera->isChecked();
        if (cameraDevice->currentIndex() >= 0) {
            m_preferences.setValue(keys::recordingAvatarCameraDeviceID,
                                   cameraDevice->currentData().toString());
        }
    }
    o.frameRate = frameRate->currentIndex() == 1 ? RecordingFrameRate::fps60
                                                 : RecordingFrameRate::fps30;
    o.resolution = resolution->currentIndex() == 0 ? RecordingResolution::standard
                                                   : RecordingResolution::native;
    if (m_capabilities.supportsHEVC) {
        o.codec = codec->currentIndex() == 1 ? RecordingCodec::hevc : RecordingCodec::h264;
    }
    o.write(m_preferences);
    microphoneDevice->setVisible(m_look == Look::form || (o.microphone && microphone->isEnabled()));
    cameraDevice->setVisible(m_hasCamera && (m_look == Look::form || o.camera));
    emit changed();
}

} // namespace nubo
