#include <UICommonMdl/CDepartmentModelManager.h>

#include <AccessControlLogical/IAccessControlManager.h>
#include <Trv/QSkin.h>
#include <UICommonMdl/ErrorCodes.h>

namespace UICommonMdl {

using AccessControlLogical::Department_t;
using AccessControlLogical::IDepartmentManagerObserver;

CDepartmentModel::CDepartmentModel(QObject* pParent)
    : CCodeTreeModel(pParent)
{
}

void CDepartmentModel::SetDepartments(const std::vector<Department_t>& vecDepartments)
{
    m_vecDepartments = vecDepartments;
    m_mapPlaces.clear();
    QVector<TreeNode> vecNodes;
    vecNodes.reserve(int(vecDepartments.size()));
    for (const Department_t& department : vecDepartments) {
        const QString sCode = QString::fromStdString(department.sCode);
        m_mapPlaces.insert(sCode, vecNodes.size());
        vecNodes.append({sCode, QString::fromStdString(department.sParentCode),
            QString::fromStdString(department.sName)});
    }
    SetNodes(vecNodes, Trv::GetIcon(QStringLiteral("group")));
}

const Department_t* CDepartmentModel::FindDepartment(const QString& sCode) const
{
    const auto it = m_mapPlaces.find(sCode);
    return it == m_mapPlaces.end() ? nullptr : &m_vecDepartments[std::size_t(*it)];
}

class CDepartmentModelManager::Observer : private IDepartmentManagerObserver
{
public:
    Observer(CDepartmentModelManager& owner, AccessControlLogical::IAccessControlManager* pManager)
        : m_owner(owner)
        , m_pManager(pManager)
    {
        m_pManager->AddObserver(this);
    }
    ~Observer() override { m_pManager->RemoveObserver(this); }

private:
    void OnNotifyDepartmentManagerState(const Answer& pAnswer) override
    {
        if (pAnswer->nResultCode != ResultQueryDepartmentTree || pAnswer->nErrorCode != ErrorNone)
            return;
        QMetaObject::invokeMethod(
            &m_context,
            [&owner = m_owner, pAnswer] {
                owner.m_model.SetDepartments(pAnswer->vecDepartments);
                Q_EMIT owner.SignalDepartmentModelFinish();
            },
            Qt::QueuedConnection);
    }

    CDepartmentModelManager& m_owner;
    AccessControlLogical::IAccessControlManager* m_pManager;
    QObject m_context; ///< answers of a manager that counts no longer are dropped with it
};

CDepartmentModelManager::CDepartmentModelManager() = default;
CDepartmentModelManager::~CDepartmentModelManager() = default;

CDepartmentModelManager* CDepartmentModelManager::Instance()
{
    static CDepartmentModelManager s_instance;
    return &s_instance;
}

void CDepartmentModelManager::SetAccessControlManager(AccessControlLogical::IAccessControlManager* pManager)
{
    m_pObserver.reset();
    m_model.SetDepartments({});
    if (pManager)
        m_pObserver = std::make_unique<Observer>(*this, pManager);
}

} // namespace UICommonMdl
