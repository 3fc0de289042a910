#pragma once

#include <optional>
#include <string>

#include "billing/tariffs/tariffkind.h"
#include "core/forms/form.h"

namespace billing {

/// The price templates of one kind of items: each client's own copy of the list with a price an item. A template is
/// built in one step, from the list of all items at price 0 or from another template at a percentage; then its prices
/// are changed one by one, in the form or in the list itself. Only the role TARIFF may write.
class TariffScreen : public core::Form {
public:
    TariffScreen(core::Workplace& place, const TariffKind& kind);

    void load() override;

    // -- a template --
    ui::Picture Frame2{*this, "Frame2"};                                  ///< "Create Tariff Template Section"
    ui::ComboBox cboHMO{*this, "cboHMO", ui::ComboBox::Style::listOnly};  ///< the client whose template shows
    ui::CheckBox chkShow{*this, "chkShow", "Show Clients &without Tariff"};
    ui::Label lblTitle{*this, "lblTitle"};
    ui::Label lblTariff{*this, "lblTariff"};                                ///< where the template's prices come from
    ui::ComboBox cboDrug{*this, "cboDrug", ui::ComboBox::Style::listOnly};  ///< "YES" for a tariff of its own
    ui::ComboBox cboUse{*this, "cboUse", ui::ComboBox::Style::listOnly};    ///< the template that it is built from
    ui::ComboBox cboPCent{*this, "cboPCent"};                               ///< at how much of its prices
    ui::CheckBox chkDel{*this, "chkDel", "&Delete Existing Tariff for this Company"};
    ui::CheckBox chkAdd{*this, "chkAdd", "Add Single &Item"};
    ui::Label lblProgress{*this, "lblProgress"};

    // -- one price --
    ui::Picture Frame1{*this, "Frame1"};  ///< "Update Price Section"
    ui::TextBox txtDrug{*this, "txtDrug"};
    ui::Label lblCat{*this, "lblCat"};
    ui::TextBox txtPrice{*this, "txtPrice", ui::decimalOnly};
    ui::Label lblWord{*this, "lblWord"};  ///< the price in words
    ui::ComboBox cboCap{*this, "cboCap", ui::ComboBox::Style::listOnly};
    ui::ComboBox cboVal{*this, "cboVal", ui::ComboBox::Style::listOnly};

    // -- the template's items --
    std::optional<ui::ComboBox> cboView;  ///< a category of them, where the kind lists by category
    ui::TextBox txtSearch{*this, "txtSearch"};
    ui::DataGrid grdData{*this, "grdData"};

    ui::Button cmdAdd{*this, "cmdAdd", "&Add"};
    ui::Button cmdEdit{*this, "cmdEdit", "&Edit"};
    ui::Button OKButton{*this, "OKButton", "&Save"};
    ui::Button cmdCancel{*this, "cmdCancel", "&Cancel"};
    ui::Button cmdRefresh{*this, "cmdRefresh", "&Refresh"};
    ui::Button cmdDel{*this, "cmdDel", "Delete"};  ///< no template is deleted alone
    ui::Button CancelButton{*this, "CancelButton", "Close"};

protected:
    [[nodiscard]] ui::Control* controlOf(std::string_view column) override;

private:
    struct Client {
        std::string key;
        std::string name;
    };
    /// The row under correction.
    struct Item {
        std::string sno;
        std::string oldPrice;
    };

    // -- choosing and looking --
    void fillLists();
    void fillClients();
    void fillTemplates();
    /// Gives Save and Add to those who may, and the prices of the list with them.
    void admit();
    void cboHMO_Click();
    void cboDrug_Click();
    void cboView_Click();
    void chkAdd_Click();
    void chkShow_Click();
    void cmdAdd_Click();
    void cmdEdit_Click();
    void cmdRefresh_Click();
    void txtPrice_Change();
    void txtSearch_Change();
    void forgetClient();
    void showTemplate();
    void showOrigin();
    void show(const db::Sql& list);
    void leaveItem();
    void reset();
    /// A cell of the list's current row; "" where the list has no such column.
    [[nodiscard]] std::string cell(const char* column) const;
    [[nodiscard]] static Client picked(const ui::ComboBox& list);
    [[nodiscard]] bool derived() const { return cboDrug.text() == "NO"; }
    /// Whose template a new one is built from; nobody where it gets a tariff of its own.
    [[nodiscard]] Client source() const { return derived() ? picked(cboUse) : Client{}; }

    // -- writing (saving.cpp) --
    void OKButton_Click();
    void saveTemplate();
    void reprice();
    void savePrice();
    void grdData_CellEdit();
    [[nodiscard]] bool mayBuild(bool exists);
    void build();
    void copyItems(db::Recordset& items, double factor);
    void addItem();
    void passOn(double price);
    /// Runs the writes in one transaction. False after an error, which was said.
    bool store(const std::function<void()>& writes);

    const TariffKind& kind_;
    Client client_;
    std::string clientKind_;
    std::optional<Item> item_;
    std::optional<db::Sql> list_;  ///< what the grid shows
};

}  // namespace billing
