#pragma once

#include "settings/ShotSettingsPage.h"

#include <QWidget>

class QKeySequenceEdit;
class QLabel;

namespace nubo {

// One global shortcut as a settings row: the keys (click, then press them),
// "Off", and under them why the keys could not be had, or which other
// action already has them. Written and bound again at once.
class ShotShortcutField : public QWidget {
    Q_OBJECT
public:
    // Adds its row (titled by the action) and its problem line to `section`.
    ShotShortcutField(const ShotSettingsContext& context, QString action, QFormLayout* section,
                      QWidget* page);

    const QString& action() const { return m_action; }
    void reload();
    // Back to the default keys (not bound again: the caller rebinds once).
    void forget();

signals:
    // Stored keys changed (other fields show them as taken).
    void changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void recorded();
    void apply();

    const ShotSettingsContext& m_context;
    QString m_action;
    QKeySequenceEdit* m_edit = nullptr;
    QLabel* m_problem = nullptr;
    QString m_refused;
};

} // namespace nubo
