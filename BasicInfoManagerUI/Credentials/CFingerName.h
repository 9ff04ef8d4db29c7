#pragma once

#include "CredentialRules.h"

#include <QDialog>

#include <memory>

namespace Ui {
class CFingerName;
}

namespace BasicInfoManagerUI {

/// Asks for the name of a fingerprint. Deletes itself when it is closed. User-interface thread.
class CFingerName : public QDialog
{
    Q_OBJECT

public:
    /// nIndex: the fingerprint that is renamed, -1 for a new one.
    CFingerName(const CredentialRules::Fingerprints& vecFingerprints, int nIndex, QWidget* pParent);
    ~CFingerName() override;

    void accept() override;

Q_SIGNALS:
    /// A good name was confirmed.
    void SignalNamed(const QString& sName);

private:
    std::unique_ptr<Ui::CFingerName> m_pUi;
    const CredentialRules::Fingerprints m_vecFingerprints;
    const int m_nIndex;
};

} // namespace BasicInfoManagerUI
