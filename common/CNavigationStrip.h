#pragma once

#include <QVector>
#include <QWidget>

class QToolButton;
class QVBoxLayout;

namespace Common {

/// A column of buttons with an icon above a title, one of them chosen. User-interface thread.
class CNavigationStrip : public QWidget
{
    Q_OBJECT

public:
    explicit CNavigationStrip(QWidget* pParent = nullptr);

    /// sIcon is the file stem of an icon in sIconFolder of the skin, whose looks are "-n", "-h" and "-p";
    /// empty: none. sTitle is translated.
    void AddEntry(
        const QString& sObjectName, const QString& sTitle, const QString& sIconFolder, const QString& sIcon);
    void SetEntryVisible(int nEntry, bool bVisible);
    /// Emits nothing.
    void SetCurrent(int nEntry);

Q_SIGNALS:
    /// The user chose the entry.
    void SignalChosen(int nEntry);

private:
    QVBoxLayout* m_pLayout;
    QVector<QToolButton*> m_vecButtons;
};

} // namespace Common
