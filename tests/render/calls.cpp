#include "tests/render/calls.h"

#include <algorithm>

testing::AssertionResult last_calls_are(const std::vector<expected_call>& expected) {
    const std::vector<gpu_call>& calls = headless_calls();
    if (calls.size() < expected.size()) {
        return testing::AssertionFailure() << "only " << calls.size() << " calls";
    }
    std::size_t start = calls.size() - expected.size();
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const gpu_call& call = calls[start + i];
        const expected_call& want = expected[i];
        bool same_reals = want.reals.empty() || want.reals == call.reals;
        if (call.op != want.op || call.numbers != want.numbers || !same_reals) {
            return testing::AssertionFailure()
                   << "call " << i << " is operation " << int{static_cast<u8>(call.op)} << " "
                   << testing::PrintToString(call.numbers) << testing::PrintToString(call.reals)
                   << ", not " << int{static_cast<u8>(want.op)} << " "
                   << testing::PrintToString(want.numbers) << testing::PrintToString(want.reals);
        }
    }
    return testing::AssertionSuccess();
}
