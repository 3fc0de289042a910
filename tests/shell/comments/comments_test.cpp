#include "core/session/session.h"
#include "tests/shell/smallscreen.h"

using namespace db::literals;

namespace test {
namespace {

void arrangeComments(TestHospital& hospital) {
    auto& session = hospital.place.session;
    session.gCommentConsultID = "C1";
    session.gCurPatientName = "Obi Ada ";
    hospital.workstationClock = db::DateTime::of(2026, 11, 25, 0, 5);
    hospital.execute("insert into hPatients (PNo, psurname, pfirstName) values ('P1', 'Obi', 'Ada')"_sql);
    hospital.execute("insert into hRecords (recDate, PNo, consultID) values ('24-Nov-2026', 'P1', 'C1')"_sql);
    hospital.execute(
        "insert into hComments (Dept, consultID, Comment, CDate, ctime) values ('NURSING', 'C1', 'Old', "
        "'23-Nov-2026', '10:00'), ('NURSING', 'C1', 'Sample clotted', '24-Nov-2026', '08:00'), ('PHARMACY', 'C1', "
        "'Not ours', '24-Nov-2026', '08:05'), ('NURSING', null, 'Result is ready', '24-Nov-2026', '08:10')"_sql);
}

const char* const columns = "select SNo, Date, Time, Fullname, Comment, Dept, AttendedTo, ConsultID FROM  vwhComments ";

class CommentScreen : public SmallScreen {
protected:
    CommentScreen(const char* screen) : SmallScreen(screen, &arrangeComments) {}
    std::string added() {
        return dump("select Dept, consultID, attendedto, Comment, CDate, ctime from hComments where SNo > 4"_sql);
    }
    std::string read() { return dump("select attendedto from hComments where SNo <= 4 order by SNo"_sql); }
    std::string stored(const std::string& comment, const std::string& attendedTo = "NO") {
        return "PHARMACY|C1|" + attendedTo + "|Comment on 24-Nov-2026 @ 09:30 for Obi Ada \r\n" + comment +
               "\r\nComment by Nurse Joy\r\nFrom: NURSING|24-Nov-2026|09:30:00\n";
    }
    void write(const std::string& comment) {
        set("txtDrug", comment);
        set("cboCat", "PHARMACY");
    }
};

class Comments : public CommentScreen {
protected:
    Comments() : CommentScreen("frmComments") {}
};

class CommentsView : public CommentScreen {
protected:
    CommentsView() : CommentScreen("frmCommentsView") {}
};

TEST_F(Comments, OpensWithAllCommentsForThisDepartment) {
    open();
    EXPECT_EQ(sent(), (std::vector<std::string>{"select distinct DeptName from hDepts",
                                                std::string(columns) + "where dept='NURSING' order by SNo"}));
    EXPECT_EQ(list({"Comment", "Fullname"}), "Old|Obi Ada\nSample clotted|Obi Ada\nResult is ready|null\n");
    EXPECT_TRUE(entries("cboCat").starts_with("|")) << entries("cboCat");
    EXPECT_NE(entries("cboCat").find("|PHARMACY|"), std::string::npos);
    EXPECT_EQ(place.desktop.loaded(name)->caption() + shown({"lblName"}), "CommentsObi Ada ");
    session().gCurPatientName.clear();
    open();
    EXPECT_EQ(shown({"lblName"}), "(no patient)");
}

TEST_F(Comments, ACommentIsStoredWithoutAQuestionAndTheScreenCloses) {
    set("txtDrug", " 0 00 ");
    stopsInOrder({{"Specify Dept", "cboCat", "   "}, {"Specify Dept", "cboCat", "PHARMACY"}});
    EXPECT_EQ(shown({"txtDrug"}), "NIL") << "zeros say nothing";
    session().gServerNow = db::DateTime::of(2026, 11, 24, 10, 0);  // the clock is not read anew
    fire("OKButton", {"Record Succesfully saved"});
    EXPECT_EQ(sent().front(), "select * from hComments where 1=2");
    EXPECT_EQ(added(), stored("NIL"));
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(read(), "NO\nNO\nNO\nNO\n");

    place.desktop.show(name);
    write(" 100 ml at 20:00 ");
    fire("OKButton", {"Record Succesfully saved"});
    EXPECT_EQ(added(), stored("NIL") + stored("100 ml at 20:00"));
    place.desktop.show(name);
    write("Never mind");
    fire("CancelButton");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(added(), stored("NIL") + stored("100 ml at 20:00"));
}

TEST_F(Comments, HostileAndEndlessTextsAreStoredWholeOrRefused) {
    for (const auto& text :
         {std::string("O'Brien'); drop table hPatients-- \xF0\x9F\xA9\xBA"), std::string(100'000, '7')}) {
        hospital.execute("delete from hComments where SNo > 4"_sql);
        write(text);
        fire("OKButton", {"Record Succesfully saved"});
        EXPECT_EQ(added(), stored(text));
        place.desktop.show(name);
    }
    hospital.execute("delete from hComments where SNo > 4"_sql);
    write("To whom?");
    set("cboCat", std::string(51, 'D'));
    hospital.setTakesMessages(true);
    fire("OKButton");
    EXPECT_NE(hospital.boxes().back().text.find("Dept"), std::string::npos) << hospital.boxes().back().text;
    EXPECT_EQ(focus(), "frmComments.cboCat");
    EXPECT_EQ(added(), "");
    EXPECT_EQ(shown({"txtDrug"}), "To whom?");
}

TEST_F(Comments, AFailedWriteOrABrokenLineStoresNothingAndKeepsTheText) {
    write("Urgent");
    hospital.failWrite(1);
    fire("OKButton", {"Injected failure"});
    EXPECT_EQ(added(), "");
    EXPECT_EQ(shown({"txtDrug", "cboCat"}), "Urgent|PHARMACY");

    const HospitalFiles files;
    Ward ward(files);
    ward.start();
    shell::provideScreens(ward.place);
    ward.place.desktop.show("frmComments");
    enter(ward.place, "frmComments", {{"txtDrug", "Urgent"}, {"cboCat", "PHARMACY"}});
    ward.setTakesMessages(true);
    int broken = 0;
    for (; ward.place.desktop.loaded("frmComments") && broken < 10; ++broken) {
        EXPECT_EQ(ward.dump("select * from hComments"_sql), "") << broken;
        EXPECT_EQ(ward.place.desktop.get("frmComments.txtDrug")["text"], "Urgent");
        ward.breakLine(broken + 1);
        ward.place.desktop.fire("frmComments.OKButton", false);
    }
    EXPECT_EQ(broken, 3) << "at the empty set and at the row; then it went through";
    EXPECT_EQ(ward.read("select * from hComments"_sql).rowCount(), 1U);
    ward.forgetFailure();
}

TEST_F(CommentsView, ShowsTheServersDayAndARowInFull) {
    open();
    EXPECT_EQ(sent().back(), std::string(columns) + "where dept='NURSING' and Date='24-Nov-2026' order by SNo Desc");
    EXPECT_EQ(list({"Comment"}), "Result is ready\nSample clotted\n");
    set("dGexp", {{"row", 1}});
    EXPECT_EQ(shown({"txtDrug", "cboCat"}), "Sample clotted|NURSING");
    write("Sent again");
    hospital.forget();
    fire("OKButton", {"Record Succesfully saved"});
    EXPECT_EQ(sent().front(), "select * from hComments where 1=    2");
    EXPECT_EQ(added(), stored("Sent again"));
    EXPECT_EQ(sent().back(), "Update hComments set AttendedTo='YES' where Dept='NURSING'");
    EXPECT_EQ(read(), "YES\nYES\nNO\nYES\n") << "an older one too, and no other department's";
}

TEST_F(CommentsView, EveryWayOfClosingMarksTheCommentsReadAndAnErrorKeepsNobody) {
    for (const char* way : {"CancelButton", "Unload"}) {
        hospital.execute("update hComments set attendedto='NO'"_sql);
        place.desktop.show(name);
        fire(way);
        EXPECT_EQ(read(), "YES\nYES\nNO\nYES\n") << way;
        hospital.execute("update hComments set attendedto='NO'"_sql);
        place.desktop.show(name);
        hospital.failWrite(1);
        fire(way, {"Injected failure"});
        EXPECT_FALSE(isOpen()) << way;
        EXPECT_EQ(read(), "NO\nNO\nNO\nNO\n") << way;
    }
}

}  // namespace
}  // namespace test
