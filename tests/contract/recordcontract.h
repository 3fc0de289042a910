#pragma once

#include <gtest/gtest.h>

#include "tests/contract/desk.h"

namespace test {

/// What every screen that keeps records does. A room's tests say how each of its screens is filled, and run it:
///
///     INSTANTIATE_TEST_SUITE_P(Outpatient, RecordContract, testing::Values(preConsult()), screenName);
class RecordContract : public testing::TestWithParam<RecordScreen> {
protected:
    struct Way {
        const char* name;
        std::function<void(Desk&)> prepare;
    };
    /// The ways to a save: a new record, and one under correction.
    [[nodiscard]] std::vector<Way> ways() const;
    [[nodiscard]] const RecordScreen& screen() const { return GetParam(); }
};

inline std::string screenName(const testing::TestParamInfo<RecordScreen>& info) {
    return info.param.name;
}

}  // namespace test
