#include "Holdings.h"

#include "PublicOperations.h"
#include "ResourceLedger.h"

namespace KivoTest {

using namespace KivoDrawingTools;

Holdings::Holdings() {
    const WithoutAllocationFaults uncounted;
    resources = TakenResources();
    blocks = LiveBlocks();
}

testing::AssertionResult AreEqual(const Holdings& now, const Holdings& before) {
    if (now.blocks == before.blocks && now.resources == before.resources) return testing::AssertionSuccess();
    auto failure = testing::AssertionFailure() << now.blocks - before.blocks << " blocks more; now";
    for (const auto& [kind, count] : now.resources)
        failure << " " << count << " " << kind;
    failure << ", before";
    for (const auto& [kind, count] : before.resources)
        failure << " " << count << " " << kind;
    return failure;
}

testing::AssertionResult IsOpenGlInOrder(CallProbe& plotter) {
    const CurrentContext context(plotter);
    const std::pair<GLenum, int> stacks[] = {{GL_MODELVIEW_STACK_DEPTH, 1},
                                             {GL_PROJECTION_STACK_DEPTH, 1},
                                             {GL_TEXTURE_STACK_DEPTH, 1},
                                             {GL_ATTRIB_STACK_DEPTH, 0},
                                             {GL_CLIENT_ATTRIB_STACK_DEPTH, 0}};
    for (const auto& [stack, expected] : stacks) {
        GLint depth = -1;
        glGetIntegerv(stack, &depth);
        if (depth != expected)
            return testing::AssertionFailure() << "depth " << depth << " of stack " << stack;
    }
    GLint list = 0;
    glGetIntegerv(GL_LIST_INDEX, &list);
    if (list != 0) return testing::AssertionFailure() << "list " << list << " is being made";
    const GLenum error = glGetError();
    if (error != GL_NO_ERROR) return testing::AssertionFailure() << "OpenGL error " << error;
    return testing::AssertionSuccess();
}

void WarmUp() {
    SCOPED_TRACE("");
    PublicOperations(); // whichever test asks first makes the list
    RecordedPlot plot;
    plot.Fill();
    plot.plotter.OnDraw();
    plot.plotter.OnDestroy();
    plot.plotter.OnDraw(); // fails, and leaves words
}

} // namespace KivoTest
