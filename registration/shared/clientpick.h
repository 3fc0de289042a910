#pragma once

#include <string>

#include "core/forms/part.h"

namespace registration {

/// The client of a patient: first the client, then the billing category of his type, then the plan; and how he pays.
/// Who keeps the picks (the session, a screen) lends its variables.
class ClientPick : public core::Part {
public:
    struct Client {
        std::string retainID, name, category, type;
    };
    struct Picked {
        std::string& retainID;
        std::string& name;
        std::string& category;
        std::string& type;
    };
    /// `clients` says whether a client may be typed, to be found by a part of the name.
    ClientPick(core::Workplace& place, ui::Screen& screen, ui::ComboBox::Style clients, const Picked& picked);

    ui::ComboBox cboPat;                                                           ///< clients
    ui::ComboBox cboClient{screen(), "cboClient", ui::ComboBox::Style::listOnly};  ///< billing categories
    ui::ComboBox txtPolicy{screen(), "txtPolicy"};                                 ///< plans
    ui::TextBox txtEmp{screen(), "txtEmp"};                                        ///< the enrollee's number
    ui::ComboBox CboRef{screen(), "CboRef", ui::ComboBox::Style::listOnly};        ///< fee for service
    ui::ComboBox cboRefHmo{screen(), "cboRefHmo", ui::ComboBox::Style::listOnly};  ///< referred by the HMO

    /// Fills the list of clients; `withPrivate` puts "(PRIVATE) [0001]" in front. Throws db::Error, as all below.
    void loadClients(bool withPrivate);
    /// Nobody is picked any more; the lists stay.
    void forget();
    /// Takes the entry that stands in the list of clients and offers his categories. False where no real entry stands
    /// there; nothing is changed then.
    bool pickClient();
    /// Shows what is stored with a patient: the client, his category and type, and the plan.
    void show(const Client& stored, const std::string& plan);
    /// What an audit says of another client than the one shown last; "" while he is the same.
    [[nodiscard]] std::string change() const;
    /// Takes the category that stands in its list and offers the plans.
    void pickCategory();
    void offerAllCategories();
    /// Offers the categories of a client's type, all of them where his type has none, and notes his type and code.
    void offerCategoriesOf(const std::string& retainID);
    /// The plans of the picked client; none but "NIL" where he, or the category, has none.
    void offerPlansOf(const std::string& category);
    void loadPlans();

    [[nodiscard]] bool isPrivate() const;
    /// The code that bills of the picked client go by.
    [[nodiscard]] const std::string& retainCode() const noexcept { return retainCode_; }

private:
    void offerNoPlans();

    Picked picked_;
    Client shown_;
    std::string retainCode_;
};

/// Whether there is such a client, whom a bill can go to. Throws db::Error.
bool isClient(db::Connection& hospital, const std::string& retainID);

}  // namespace registration
