#pragma once

#include <AccessControlLogical/PersonRecords.h>
#include <UICommonMdl/CCodeTreeModel.h>

#include <memory>

namespace AccessControlLogical {
class IAccessControlManager;
}

namespace UICommonMdl {

/// The tree of person groups, as the server has it.
class UICOMMONMDL_EXPORT CDepartmentModel : public CCodeTreeModel
{
    Q_OBJECT

public:
    explicit CDepartmentModel(QObject* pParent = nullptr);

    /// Parents stand before their children.
    void SetDepartments(const std::vector<AccessControlLogical::Department_t>& vecDepartments);
    /// Null when there is none. Valid until the next change.
    const AccessControlLogical::Department_t* FindDepartment(const QString& sCode) const;

private:
    std::vector<AccessControlLogical::Department_t> m_vecDepartments;
    QHash<QString, int> m_mapPlaces;
};

/// Keeps the one model of person groups that all pages share, and fills it from every answer to
/// IAccessControlManager::QueryDepartmentTree, whoever asked. User-interface thread.
class UICOMMONMDL_EXPORT CDepartmentModelManager : public QObject
{
    Q_OBJECT

public:
    static CDepartmentModelManager* Instance();
    ~CDepartmentModelManager() override;

    CDepartmentModel* GetDepartmentModel() { return &m_model; }

    /// For the host: the manager whose answers count (borrowed; null: none), before any page is made. The
    /// model is emptied.
    void SetAccessControlManager(AccessControlLogical::IAccessControlManager* pManager);

Q_SIGNALS:
    /// The model holds the tree of a new answer.
    void SignalDepartmentModelFinish();

private:
    CDepartmentModelManager();

    class Observer;
    CDepartmentModel m_model;
    std::unique_ptr<Observer> m_pObserver;
};

} // namespace UICommonMdl
