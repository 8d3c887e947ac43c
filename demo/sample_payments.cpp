#include "demo/sample_payments.h"

#include "demo/sample_masters.h"

using namespace Qt::StringLiterals;

namespace sample {
namespace {

/// Settling days. Each time another part of the customers pays; a few never do.
const struct {
    QDate day;
    int turn;
    QString remark;
} days[] = {
    {QDate(2024, 10, 15), 0, u"九月帐款"_s},
    {QDate(2024, 10, 31), 1, u"十月上半月帐款"_s},
    {QDate(2024, 11, 15), 2, u"十月帐款"_s},
    {QDate(2024, 11, 22), 0, u"十一月上半月帐款"_s},
};
constexpr int Turns = 3;

int Percent(std::size_t customer, int turn) {
    return 30 + 10 * static_cast<int>((customer * 7 + static_cast<std::size_t>(turn)) % 7);
}

}  // namespace

std::vector<PaymentDay> PlanPayments() {
    std::vector<PaymentDay> plan;
    for (const auto& [day, turn, remark] : days) {
        PaymentDay& now = plan.emplace_back(PaymentDay{.day = day});
        for (std::size_t i = 0; i < Customers().size(); ++i)
            if (static_cast<int>(i) % (Turns + 1) == turn || static_cast<int>(i) % Turns == turn)
                now.received.push_back({Customers()[i].name, Percent(i, turn), remark});
        for (const Channel& channel : Channels()) now.made.push_back({channel.name, 80, remark});
    }
    return plan;
}

}  // namespace sample
