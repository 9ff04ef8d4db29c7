#pragma once

#include <UICommonMdl/UICommonMdlExport.h>
#include <VxGUI/VxSingleton.h>

#include <QString>

namespace UICommonMdl {

/// What holds for the whole client. Any thread for reading; the setters belong to the client's start.
class UICOMMONMDL_EXPORT CGlobalInfo
{
public:
    static CGlobalInfo* Instance();

    /// Language of the client as in "en_US".
    QString GetClientStrLanguage() const;
    void SetClientStrLanguage(const QString& sLanguage);

    /// True when the password is on the list of passwords that everybody knows, whatever its case.
    bool CheckWeakPassword(const QString& sPassword) const;

private:
    friend class VxGUI::VxSingleton<CGlobalInfo>;
    CGlobalInfo() = default;

    QString m_sLanguage = QStringLiteral("en_US");
};

} // namespace UICommonMdl
