#pragma once

#include "capture/CapturePlatform.h"

namespace nubo {

// Stands in where no backend loads: the editor and everything else work,
// and every capture says why it cannot be taken.
class NullCapturePlatform : public CapturePlatform {
public:
    explicit NullCapturePlatform(QString problem);

    QString name() const override { return QStringLiteral("none"); }
    QString problem() const override { return m_problem; }
    CapturePlatformFeatures features() const override { return {}; }
    std::shared_ptr<ScreenCapturing> capturer() override { return m_capturer; }
    std::shared_ptr<ScreenRegionStreaming> regionStreaming() override { return nullptr; }
    std::shared_ptr<ScrollDriving> scrollDriving() override { return nullptr; }
    std::unique_ptr<GlobalShortcuts> makeGlobalShortcuts() override { return nullptr; }

private:
    QString m_problem;
    std::shared_ptr<ScreenCapturing> m_capturer;
};

} // namespace nubo
