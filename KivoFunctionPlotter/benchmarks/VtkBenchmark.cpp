// The plot's jobs as a program does them that is built on VTK.
#include "support/BenchmarkGrid.h"
#include "support/Registration.h"
#include "support/ResidentMemory.h"

#include <vtkActor.h>
#include <vtkCamera.h>
#include <vtkCellPicker.h>
#include <vtkContourFilter.h>
#include <vtkCubeAxesActor.h>
#include <vtkDataSetSurfaceFilter.h>
#include <vtkFloatArray.h>
#include <vtkFlyingEdges2D.h>
#include <vtkGenericRenderWindowInteractor.h>
#include <vtkImageData.h>
#include <vtkLookupTable.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>
#include <vtkQuadricLODActor.h>
#include <vtkRenderer.h>
#include <vtkRenderWindow.h>
#include <vtkScalarBarActor.h>
#include <vtkSmartPointer.h>
#include <vtkSMPTools.h>
#include <vtkStructuredGrid.h>

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace KivoBenchmark {

namespace {

constexpr int windowWidth = 800;
constexpr int windowHeight = 600;
constexpr unsigned int levelCount = 20;

// An array of VTK over values that stay the caller's.
vtkSmartPointer<vtkFloatArray> Wrap(std::vector<float>& values, int components) {
    auto array = vtkSmartPointer<vtkFloatArray>::New();
    array->SetNumberOfComponents(components);
    array->SetArray(values.data(), static_cast<vtkIdType>(values.size()), 1);
    return array;
}

// A host's data: points, and each coordinate as the scalars to colour or contour by.
struct HostData {
    explicit HostData(int size)
        : n(size), points(SquareGrid(static_cast<unsigned int>(n))), coordinates{Coordinates(points, 0),
                                                                                 Coordinates(points, 1),
                                                                                 Coordinates(points, 2)} {}

    vtkSmartPointer<vtkStructuredGrid> StructuredGrid(int scalars) {
        vtkNew<vtkPoints> vertices;
        vertices->SetData(Wrap(points, 3));
        auto grid = vtkSmartPointer<vtkStructuredGrid>::New();
        grid->SetDimensions(n, n, 1);
        grid->SetPoints(vertices);
        grid->GetPointData()->SetScalars(Wrap(coordinates[scalars], 1));
        return grid;
    }

    vtkSmartPointer<vtkImageData> Image(int scalars) {
        auto image = vtkSmartPointer<vtkImageData>::New();
        image->SetDimensions(n, n, 1);
        image->SetOrigin(-1.0, -1.0, 0.0);
        image->SetSpacing(2.0 / (n - 1), 2.0 / (n - 1), 1.0);
        image->GetPointData()->SetScalars(Wrap(coordinates[scalars], 1));
        return image;
    }

    int n;
    std::vector<float>& points;
    std::vector<float> coordinates[3];
};

// The last data asked for: making them takes longer than most of the jobs.
HostData& Data(const benchmark::State& state) {
    static std::unique_ptr<HostData> data;
    const int n = static_cast<int>(state.range(0));
    if (!data || data->n != n) data = std::make_unique<HostData>(n);
    return *data;
}

// From the host's array to a mapper with its polygons and its colours.
vtkSmartPointer<vtkPolyDataMapper> MapperOf(HostData& data) {
    const auto grid = data.StructuredGrid(2);
    vtkNew<vtkDataSetSurfaceFilter> surface;
    surface->SetInputData(grid);
    auto mapper = vtkSmartPointer<vtkPolyDataMapper>::New();
    mapper->SetInputConnection(surface->GetOutputPort());
    mapper->SetScalarRange(grid->GetScalarRange());
    mapper->Update();
    mapper->MapScalars(1.0);
    return mapper;
}

void Load(benchmark::State& state) {
    HostData& data = Data(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(MapperOf(data));
}

template <typename Filter>
void SetLevels(Filter& filter, const std::vector<float>& levels) {
    filter.SetNumberOfContours(static_cast<int>(levels.size()));
    for (std::size_t i = 0; i < levels.size(); ++i)
        filter.SetValue(static_cast<int>(i), static_cast<double>(levels[i]));
}

// Contours of the three axes by one kind of filter each. makeInput(axis) yields what to contour.
template <typename Filter, typename MakeInput>
void MeasureContours(benchmark::State& state, HostData& data, MakeInput makeInput) {
    std::vector<float> levels[3];
    for (int axis = 0; axis < 3; ++axis)
        levels[axis] = EvenLevels(data.coordinates[axis], levelCount);
    vtkIdType segments[3] = {};
    for (auto _ : state)
        for (int axis = 0; axis < 3; ++axis) {
            vtkNew<Filter> filter;
            filter->SetInputData(makeInput(axis));
            filter->ComputeScalarsOff();
            SetLevels(*filter.GetPointer(), levels[axis]);
            filter->Update();
            segments[axis] = filter->GetOutput()->GetNumberOfLines();
        }
    state.counters["z_segments"] = static_cast<double>(segments[2]);
    state.counters["segments"] = static_cast<double>(segments[0] + segments[1] + segments[2]);
}

void Contours(benchmark::State& state) {
    HostData& data = Data(state);
    MeasureContours<vtkContourFilter>(state, data, [&](int axis) { return data.StructuredGrid(axis); });
}

void FlyingEdges(benchmark::State& state) {
    HostData& data = Data(state);
    MeasureContours<vtkFlyingEdges2D>(state, data, [&](int axis) { return data.Image(axis); });
}

// A surface with its edges, axes and a scalar bar in an off-screen window.
class Scene {
public:
    explicit Scene(HostData& data, const vtkSmartPointer<vtkActor>& actor = vtkSmartPointer<vtkActor>::New())
        : m_size(data.n), m_mapper(MapperOf(data)), m_actor(actor) {
        m_actor->SetMapper(m_mapper);
        m_axes->SetBounds(m_mapper->GetBounds());
        m_axes->SetCamera(m_renderer->GetActiveCamera());
        m_bar->SetLookupTable(m_mapper->GetLookupTable());
        m_renderer->AddActor(m_actor);
        m_renderer->AddActor(m_axes);
        m_renderer->AddActor2D(m_bar);
        m_window->SetOffScreenRendering(1);
        m_window->SetMultiSamples(0);
        m_window->SetSize(windowWidth, windowHeight);
        m_window->AddRenderer(m_renderer);
        m_renderer->ResetCamera();
        m_renderer->GetActiveCamera()->Elevation(-55.0);
        m_renderer->GetActiveCamera()->Azimuth(20.0);
    }

    int Size() const { return m_size; }
    vtkRenderer* Renderer() { return m_renderer; }
    void ShowEdges(bool show) { m_actor->GetProperty()->SetEdgeVisibility(show ? 1 : 0); }
    /// As the interactor does while a button is held.
    void Interact() {
        m_window->SetInteractor(m_interactor);
        m_window->SetDesiredUpdateRate(m_interactor->GetDesiredUpdateRate());
    }
    void Turn(double degrees) { m_renderer->GetActiveCamera()->Azimuth(degrees); }
    void Draw() {
        m_window->Render();
        m_window->WaitForCompletion();
    }

private:
    int m_size;
    vtkSmartPointer<vtkPolyDataMapper> m_mapper;
    vtkSmartPointer<vtkActor> m_actor;
    vtkNew<vtkCubeAxesActor> m_axes;
    vtkNew<vtkScalarBarActor> m_bar;
    vtkNew<vtkRenderer> m_renderer;
    vtkNew<vtkRenderWindow> m_window;
    vtkNew<vtkGenericRenderWindowInteractor> m_interactor;
};

Scene& SceneOf(const benchmark::State& state) {
    static std::unique_ptr<Scene> scene;
    if (!scene || scene->Size() != state.range(0)) {
        scene.reset(); // one at a time
        scene = std::make_unique<Scene>(Data(state));
    }
    return *scene;
}

void MeasureFrames(benchmark::State& state, bool withEdges) {
    Scene& scene = SceneOf(state);
    scene.ShowEdges(withEdges);
    scene.Draw();
    for (auto _ : state)
        scene.Draw();
}

void Frame(benchmark::State& state) {
    MeasureFrames(state, false);
}

void FrameWithLines(benchmark::State& state) {
    MeasureFrames(state, true);
}

// Of a drag, when the actor draws a copy that it has made by clustering for the first one.
void MovedFrame(benchmark::State& state) {
    Scene scene(Data(state), vtkSmartPointer<vtkQuadricLODActor>::New());
    scene.ShowEdges(true);
    scene.Interact();
    scene.Draw();
    double step = 1.0;
    for (auto _ : state) {
        scene.Turn(step = -step);
        scene.Draw();
    }
}

void Pick(benchmark::State& state) {
    Scene& scene = SceneOf(state);
    scene.Draw();
    vtkNew<vtkCellPicker> picker;
    picker->SetTolerance(0.0);
    for (auto _ : state)
        if (!picker->Pick(windowWidth / 2, windowHeight / 2, 0.0, scene.Renderer()))
            state.SkipWithError("nothing lies under the pointer");
}

void PeakMemory(benchmark::State& state) {
    HostData& data = Data(state);
    const double before = ResidentBytes();
    for (auto _ : state) {
        Scene scene(data);
        scene.ShowEdges(true);
        scene.Draw();
    }
    ReportPeak(state, before);
}

BENCHMARK(Load)->Apply(PeerSizes);
BENCHMARK(Contours)->Apply(PeerSizes);
BENCHMARK(FlyingEdges)->Apply(PeerSizes);
BENCHMARK(Pick)->Apply(PeerSizes);
BENCHMARK(Frame)->Apply(PeerSizes);
BENCHMARK(FrameWithLines)->Apply(PeerSizes);
BENCHMARK(MovedFrame)->Apply(PeerSizes);
BENCHMARK(PeakMemory)->Apply(PeerSizes)->Iterations(1);

} // namespace

} // namespace KivoBenchmark

int main(int argc, char** argv) {
    vtkSMPTools::Initialize(1); // one thread, as the plot has
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
