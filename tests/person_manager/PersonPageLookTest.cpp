#include "PersonPageFixture.h"

#include <tests/support/gui/Look.h>

#include <QLabel>

class PersonPageLook : public PersonPageTest::Fixture, public testing::WithParamInterface<Look>
{
};

TEST_P(PersonPageLook, EverythingCanBeReadInASmallAndInALargeWindow)
{
    const LookScope look(GetParam());
    m_host.site.vecPersons[0].sName = "Maximiliane Charlotte von Hohenstein-Waldburg";
    m_host.site.vecPersons[0].sPlates = "B AB 1234,HH XY 987";
    Open(QSize(1024, 700));
    SelectGroup("1001");
    Check("102");
    look.ExpectReadable(*m_pPage, "persons-small");
    m_pPage->resize(1600, 900);
    PageDriver::Settle();
    look.ExpectReadable(*m_pPage, "persons-large");
    m_host.SetMissingRights({"002003001"});
    PageDriver::Settle();
    look.ExpectReadable(*m_pPage, "persons-no-right");
}

INSTANTIATE_TEST_SUITE_P(Skins, PersonPageLook, EverySkin, NameOf);
