#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class CCardReaderBar;
}
namespace UICommonMdl {
class ILocalConfig;
}

namespace BasicInfoManagerUI {

class CReadCard;

/// Starts and stops reading cards, chooses the reader, and says how the reader is. User-interface thread.
class CCardReaderBar : public QWidget
{
    Q_OBJECT

public:
    explicit CCardReaderBar(QWidget* pParent = nullptr);
    ~CCardReaderBar() override;

    /// Where the choice of the reader is kept (borrowed); null: it ends with the widget.
    void SetConfig(UICommonMdl::ILocalConfig* pConfig) { m_pConfig = pConfig; }
    /// Lets the reader go.
    void StopReading();
    /// While it is paused no card is taken.
    void SetPaused(bool bPaused);

Q_SIGNALS:
    /// A card was read, and its number is one. Upper case.
    void SignalCardNo(const QString& sCardNo);
    /// What was read is no card number: the translated reason.
    void SignalBadCard(const QString& sText);

protected:
    void hideEvent(QHideEvent* pEvent) override;

private:
    void OnReadClicked(bool bRead);
    void StartReading();
    void ChooseReader();
    void OnReaderConnected(bool bConnected);
    void ShowState(const QString& sText, bool bLost = false);

    std::unique_ptr<Ui::CCardReaderBar> m_pUi;
    UICommonMdl::ILocalConfig* m_pConfig = nullptr;
    int m_nReaderType;
    QString m_sReaderName;
    CReadCard* m_pReadCard;
};

} // namespace BasicInfoManagerUI
