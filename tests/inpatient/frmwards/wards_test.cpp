#include "inpatient/screens.h"
#include "tests/core/atscreen.h"

using namespace db::literals;

namespace test {
namespace {

class Wards : public AtScreen {
protected:
    Wards() : AtScreen("frmWards", &inpatient::provideScreens) {}
};

TEST_F(Wards, TheKeyFollowsTheNameUntilItIsChangedByItself) {
    fire("cmdAdd");
    EXPECT_EQ(entries("txtLocation"), "GRD FLR|1ST FLR|2ND FLR|");
    stopsInOrder({{"Please enter Ward Name", "txtID", {}, {{"txtName", "Male Ward"}}},
                  {"Please Select Ward Location ", "txtLocation", "1ST FLR"}});
    EXPECT_EQ(shown({"txtID"}), "Male Ward");
    set("txtID", "M1");
    save();
    EXPECT_EQ(dump("select * from hWards where wardID='M1'"_sql), "M1|Male Ward|1ST FLR\n");
    fire("cmdEdit");
    EXPECT_EQ(shown({"txtID", "txtName", "txtLocation"}), "M1|Male Ward|1ST FLR");
    set("txtName", "Men");
    EXPECT_EQ(shown({"txtID"}), "Men");
    save({"Record Succesfully updated"});
    EXPECT_TRUE(ran("select * from hWards where WardID='M1'"));
    EXPECT_EQ(dump("select * from hWards where WardName='Men'"_sql), "Men|Men|1ST FLR\n");
}

TEST_F(Wards, AKeyThatStandsAlreadyIsRefusedAndADeleteLooksAtNobodyInTheWard) {
    hospital.execute("delete from hWards"_sql);
    hospital.execute("insert into hWards (wardID, WardName, Location) values ('ICU', 'ICU', 'GRD FLR')"_sql);
    hospital.execute("insert into hAdmission (PNo, consultID, wardID) values ('P1', 'C1', 'ICU')"_sql);
    fire("cmdRefresh");
    fire("cmdAdd");
    fill({{"txtName", "icu"}, {"txtLocation", "GRD FLR"}});
    hospital.setTakesMessages(true);
    save({});
    EXPECT_EQ(shown({"txtName"}), "icu");
    EXPECT_EQ(dump("select WardName from hWards"_sql), "ICU\n");
    fire("cmdCancel");
    hospital.answer("yes");
    fire("cmdDel");
    EXPECT_TRUE(ran("delete from hWards where wardID = 'ICU'"));
    EXPECT_EQ(dump("select wardID from hAdmission"_sql), "ICU\n");
}

}  // namespace
}  // namespace test
