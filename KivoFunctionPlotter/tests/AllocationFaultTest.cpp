// Every allocation made to fail in turn: std::bad_alloc or the documented result, nothing lost, and a plotter
// that goes on working.
#include "KivoGridBox.h"
#include "support/Holdings.h"
#include "support/PublicOperations.h"
#include "TextRenderer.h"

#include <functional>
#include <new>
#include <string>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

using Mode = AllocationFault::Mode;

std::string Words(const std::string& what, long n, Mode mode) {
    return what + ", allocation " + std::to_string(n) + (mode == Mode::once ? "" : " and all that follow");
}

} // namespace

// An object that cannot be allocated is left out, and the members see to it.
TEST(AllocationFaults, ConstructionNeverThrows) {
    WarmUp();
    for (const Mode mode : {Mode::once, Mode::onwards}) {
        bool hasFailed = true;
        for (long n = 1; hasFailed; ++n) {
            SCOPED_TRACE(Words("construction", n, mode));
            const Holdings before;
            {
                const TestWindow window(WindowKind::offscreen, 120, 90);
                AllocationFault fault(n, mode);
                CallProbe plotter;
                fault.Stop();
                hasFailed = fault.HasFailed();
                EXPECT_EQ(plotter.OnCreate(window.Handle(), 120, 90, true), 0);
                for (const PublicOperation& member : PublicOperations()) {
                    SCOPED_TRACE(member.name);
                    member.run(plotter);
                }
                EXPECT_EQ(plotter.Renderscene(), 0);
                EXPECT_EQ(plotter.OnDestroy(), 0);
            }
            EXPECT_TRUE(AreEqual(Holdings(), before));
        }
    }
}
