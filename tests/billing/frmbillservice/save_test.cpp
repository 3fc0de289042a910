// New lines join the account, together or not at all.

#include <cstdint>
#include <random>

#include "core/session/session.h"
#include "tests/billing/frmbillservice/bill.h"

using namespace db::literals;

namespace test {
namespace {

std::string kobo(std::int64_t amount) {
    const auto digits = std::to_string(amount % 100);
    return std::to_string(amount / 100) + (digits.size() == 1 ? ".0" : ".") + digits;
}

TEST_F(Bill, ASaveIsCheckedAndAskedFor) {
    fire("cmdBill");
    stopsInOrder({{"Select a Patient for this Billing Analysis", "cboVehNo", adaLies},
                  {"Select Name of Nurse that Billed", "cboReason", "Nurse Joy [E001]", {{"dtDate", nullptr}}},
                  {"Please specify Date", "dtDate", "2026-11-23"}});
    add({"GAUZE", "100"});
    const auto before = lines();
    hospital.answer("no");
    fire("OKButton");
    EXPECT_EQ(hospital.boxes().back().text + hospital.boxes().back().title, "Are you sure to save?About to save");
    EXPECT_EQ(lines() + stored(), before);
    hospital.forget();
    saved();
    EXPECT_TRUE(ran("select * from billAccum where 1=2"));
    sent();
    EXPECT_EQ(stored(), "23-Nov-2026|P1|C1|GAUZE||100|1|100|***|SERVICE|AXM|0007|null|NO|0|0|0|TREATMENT\n");
    EXPECT_EQ(audits(), "Bill Item Generated for: Obi Ada|C1|GAUZE:100.00\n");
    EXPECT_EQ(shown({"lblTitle", "lblBill", "lblClient", "cboVehNo", "txtPresc", "lblGen", "lblTotal"}) + lines(),
              "Admission Billing (Services)|||||0|0");
    EXPECT_TRUE(is("cmdBill", "visible") && is("cboDrug", "enabled"));
    EXPECT_FALSE(is("OKButton", "visible") || is("cmdCancel", "visible") || is("cmdRefresh", "visible"));
    bill(adaLies);
    EXPECT_NE(lines().find("GAUZE|null"), 0U);
    EXPECT_EQ(shown({"lblGen"}), "4,101.00");
    saved();  // old lines alone: nothing is written
    EXPECT_NE(stored().find("GAUZE"), std::string::npos);
    EXPECT_EQ(stored().find('\n'), stored().size() - 1);
    bill(musaLies, {privateNotice});
    saved({});  // no line: nothing is said
    EXPECT_TRUE(is("cmdBill", "visible"));
}

TEST_F(Bill, TheLineAddedLastDecidesTheCapitationOfAll) {
    bill(adaLies);
    add({"A", "1", "1", "YES"});
    add({"B", "2", "1", "NO"});
    saved();
    bill(adaLies);
    add({"C", "1", "1", "NO"});
    add({"D", "2", "1", "YES"});
    takeOut(4);
    saved();
    bill(musaLies, {privateNotice});
    add({"E", "1", "1", "YES"});
    saved();
    hospital.execute("update hPatients set ref='YES' where PNo='P1'"_sql);
    bill(adaLies);
    add({"F", "1", "1", "YES"});
    saved();
    EXPECT_EQ(dump("select drgName, Capitated from billAccum where SNO > 2 order by SNO"_sql),
              "A|NO\nB|NO\nD|NO\nE|NO\nF|NO\n");
}

TEST_F(Bill, AHundredBillsAgreeToTheKobo) {
    std::mt19937 random(20261124);
    const auto below = [&random](std::int64_t limit) {
        return static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(limit));
    };
    std::int64_t tally = 0;
    for (int number = 0; number < 100; ++number) {
        bill(musaLies, {privateNotice});
        hospital.execute("delete from billAccum where consultID='C2'"_sql);
        set("cboVehNo", musaLies, {privateNotice});
        std::int64_t total = 0;
        const auto count = 1 + below(8);
        for (std::int64_t line = 0; line < count; ++line) {
            const auto price = 1 + below(random() % 4 == 0 ? 100'000'000 : 100'000);  // in kobo
            const auto tenths = 1 + below(1000);                                      // of a unit
            const auto sub = (price * tenths + 5) / 10;
            add({"ITEM" + std::to_string(line), kobo(price),
                 std::to_string(tenths / 10) + "." + std::to_string(tenths % 10)});
            total += sub;
            tally += sub;
        }
        std::int64_t shownTally = 0;
        for (const char digit : shown({"lblTotal"}))
            if (digit >= '0' && digit <= '9') shownTally = shownTally * 10 + (digit - '0');
        ASSERT_EQ(shownTally, tally);
        saved();
        std::int64_t stored = 0;
        auto rows = hospital.read("select SubTotal from billAccum where consultID='C2'"_sql);
        for (; !rows.eof(); rows.moveNext()) {
            const double exact = rows["SubTotal"].number() * 100;
            const auto whole = static_cast<std::int64_t>(exact + 0.5);
            ASSERT_EQ(rows["SubTotal"].number(), std::stod(kobo(whole))) << "no part of a kobo";
            stored += whole;
        }
        ASSERT_EQ(stored, total);
        hospital.forget();
    }
}

// -- faults --

TEST_F(Bill, EachWriteThatFailsLeavesTheAccountAndTheScreen) {
    bill(adaLies);
    add({"GAUZE", "100"});
    add({"BANDAGE", "20"});
    hospital.setTakesMessages(true);
    const auto screen = place.desktop.get(name);
    for (const auto* write : {"GAUZE", "BANDAGE"}) {
        hospital.failWrite(*write == 'G' ? 1 : 3);  // between the two lines goes the first one's audit row
        hospital.answer("yes");
        fire("OKButton");
        EXPECT_FALSE(hospital.failurePending());
        EXPECT_EQ(stored() + audits(), "") << write;
        EXPECT_EQ(place.desktop.get(name), screen) << write;
    }
    // An audit row that fails is told of and stops nothing.
    hospital.failStatement("SpAudiTrail");
    hospital.forget();
    hospital.answer("yes");
    fire("OKButton");
    EXPECT_EQ(hospital.boxes()[1].text + hospital.boxes()[2].text, "Injected failureRecord Succesfully saved");
    EXPECT_EQ(dump("select drgName from billAccum where SNO > 2 order by SNO"_sql), "GAUZE\nBANDAGE\n");
    EXPECT_EQ(audits(), "Bill Item Generated for: Obi Ada|C1|BANDAGE:20.00\n");
}

TEST_F(Bill, AnItemThatDoesNotFitItsColumnIsTold) {
    bill(adaLies);
    add({std::string(201, 'X'), "1"});
    const auto before = lines();
    hospital.setTakesMessages(true);
    hospital.answer("yes");
    fire("OKButton");
    EXPECT_NE(hospital.boxes().back().text.find("drgName"), std::string::npos) << hospital.boxes().back().text;
    EXPECT_EQ(focus(), "frmBillService.OrderGridDrug");
    EXPECT_EQ(lines() + stored(), before);
}

TEST(BillInFiles, ALineThatBreaksAtAnyStatementLeavesTheAccountAndTheLines) {
    const HospitalFiles files;
    Ward hospital(files);
    hospital.start();
    billing::provideScreens(hospital.place);
    arrangeBills(hospital);
    hospital.place.desktop.show("frmBillService");
    hospital.setTakesMessages(true);
    const auto broken = hospital.breakTheLineAtEachStatement(
        "frmBillService",
        [&] {
            hospital.place.desktop.fire("frmBillService.cmdBill", false);
            enter(hospital.place, "frmBillService", {{"cboReason", "Nurse Joy [E001]"}, {"cboVehNo", adaLies}});
            for (const auto* item : {"GAUZE", "BANDAGE"}) {
                type(hospital.place, {item, "100"});
                hospital.place.desktop.fire("frmBillService.cmdAdd", false);
            }
        },
        [&] { return hospital.dump("select * from billAccum"_sql) + hospital.dump("select * from hAuditTrail"_sql); });
    EXPECT_GE(broken.size(), 5U);
    EXPECT_EQ(hospital.dump("select drgName from billAccum where SNO > 2"_sql), "GAUZE\nBANDAGE\n");
}

}  // namespace
}  // namespace test
