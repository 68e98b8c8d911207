#!/usr/bin/env python3
"""What a picture takes from arrays in memory to a PNG file, beside other libraries that are installed: compare.py [N...]

Each case runs in a process of its own: the import, then pictures of 1200 x 800 pixels of the same n x n heights, the first
one and the median of three that follow. Times are of the wall clock and of all processors; memory is the process's peak.
PYTHONPATH leads to the built module."""

import json
import os
import resource
import subprocess
import sys
import tempfile
import time

CASES = ('kivoplot', 'kivoplot, plain', 'matplotlib, 50 x 50 shown', 'matplotlib, all shown', 'VTK')
MOST_FOR_MATPLOTLIB = 200  # beyond, a picture of all points takes minutes


def heights(np, n):
    x = np.linspace(-1, 1, n)
    return x, np.sin(6 * x) * np.cos(5 * x[:, None]) * np.exp(-(x * x + (x * x)[:, None]))


def prepare_kivoplot(smoothing):
    import kivoplot

    def draw(x, z, path):
        kivoplot.plot(z, x, x, colors='viridis', size=(1200, 800)).save(path, smoothing=smoothing)
    return draw


def prepare_matplotlib(shows_all):
    import matplotlib
    matplotlib.use('Agg')
    import matplotlib.pyplot as plt

    def draw(x, z, path):
        figure = plt.figure(figsize=(12, 8), dpi=100)
        axes = figure.add_subplot(projection='3d')
        counts = {'rcount': len(x), 'ccount': len(x)} if shows_all else {}
        surface = axes.plot_surface(x[None, :], x[:, None], z, cmap='viridis', **counts)
        figure.colorbar(surface)
        figure.savefig(path)
        plt.close(figure)
    return draw


def prepare_vtk():
    import numpy as np
    import vtkmodules.vtkRenderingFreeType  # noqa: F401  registers what draws texts
    import vtkmodules.vtkRenderingOpenGL2  # noqa: F401
    from vtkmodules.util.numpy_support import numpy_to_vtk
    from vtkmodules.vtkCommonCore import vtkPoints
    from vtkmodules.vtkCommonDataModel import vtkStructuredGrid
    from vtkmodules.vtkIOImage import vtkPNGWriter
    from vtkmodules.vtkRenderingAnnotation import vtkCubeAxesActor, vtkScalarBarActor
    from vtkmodules.vtkRenderingCore import vtkActor, vtkDataSetMapper, vtkRenderer, vtkRenderWindow, vtkWindowToImageFilter

    def draw(x, z, path):
        n = len(x)
        data = np.empty((n, n, 3), np.float32)
        data[..., 0], data[..., 1], data[..., 2] = x, x[:, None], z
        points, grid = vtkPoints(), vtkStructuredGrid()
        points.SetData(numpy_to_vtk(data.reshape(-1, 3)))
        grid.SetDimensions(n, n, 1)
        grid.SetPoints(points)
        grid.GetPointData().SetScalars(numpy_to_vtk(data[..., 2].ravel()))
        mapper, actor, renderer, window = vtkDataSetMapper(), vtkActor(), vtkRenderer(), vtkRenderWindow()
        mapper.SetInputData(grid)
        mapper.SetScalarRange(float(z.min()), float(z.max()))
        actor.SetMapper(mapper)
        renderer.AddActor(actor)
        bar, axes = vtkScalarBarActor(), vtkCubeAxesActor()
        bar.SetLookupTable(mapper.GetLookupTable())
        axes.SetBounds(actor.GetBounds())
        axes.SetCamera(renderer.GetActiveCamera())
        renderer.AddActor(axes)
        renderer.AddActor2D(bar)
        window.SetOffScreenRendering(1)
        window.SetSize(1200, 800)
        window.AddRenderer(renderer)
        renderer.GetActiveCamera().Elevation(-50)
        renderer.ResetCamera()
        window.Render()
        image, writer = vtkWindowToImageFilter(), vtkPNGWriter()
        image.SetInput(window)
        writer.SetInputConnection(image.GetOutputPort())
        writer.SetFileName(path)
        writer.Write()
    return draw


PREPARE = {'kivoplot': lambda: prepare_kivoplot(2), 'kivoplot, plain': lambda: prepare_kivoplot(1),
           'matplotlib, 50 x 50 shown': lambda: prepare_matplotlib(False),
           'matplotlib, all shown': lambda: prepare_matplotlib(True), 'VTK': prepare_vtk}


def processors():
    used = resource.getrusage(resource.RUSAGE_SELF)
    return used.ru_utime + used.ru_stime


def run(case, n):
    """In a process of its own."""
    start = time.perf_counter()
    draw = PREPARE[case]()
    imported = time.perf_counter() - start
    import numpy as np
    x, z = heights(np, n)
    taken = []
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, 'plot.png')
        for _ in range(4):
            wall, cpu = time.perf_counter(), processors()
            draw(x, z, path)
            taken.append((time.perf_counter() - wall, processors() - cpu))
    later = sorted(taken[1:])[1]
    print(json.dumps({'import': imported, 'first': taken[0], 'later': later,
                      'peak': resource.getrusage(resource.RUSAGE_SELF).ru_maxrss / 1024}))


def main():
    if len(sys.argv) > 2 and sys.argv[1] == '--run':
        return run(sys.argv[2], int(sys.argv[3]))
    sizes = [int(word) for word in sys.argv[1:]] or [200, 1000, 2000]
    print('| n | library | import ms | first picture ms (processors) | later ones ms (processors) | peak MB |\n|---|---|---|---|---|---|')
    for n in sizes:
        for case in CASES:
            if case == 'matplotlib, all shown' and n > MOST_FOR_MATPLOTLIB:
                continue
            result = subprocess.run([sys.executable, __file__, '--run', case, str(n)], capture_output=True, text=True)
            if result.returncode != 0:
                print(f'| {n} | {case} | {result.stderr.strip().splitlines()[-1] if result.stderr else result.returncode} |')
                continue
            got = json.loads(result.stdout.splitlines()[-1])
            first, later = ('{:.0f} ({:.0f})'.format(*(1e3 * seconds for seconds in got[key])) for key in ('first', 'later'))
            print(f'| {n} | {case} | {1e3 * got["import"]:.0f} | {first} | {later} | {got["peak"]:.0f} |', flush=True)
    return 0


if __name__ == '__main__':
    sys.exit(main())
