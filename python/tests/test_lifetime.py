"""Who lives how long: arrays, windows, functions, plots, threads, the interpreter."""

import gc
import resource
import sys
import threading
import time
import weakref

import numpy as np
import pytest

import kivoplot as kp


def grid_points(rows=12, columns=10):
    points = np.zeros((rows, columns, 3), 'f4')
    points[..., 0], points[..., 1] = np.arange(columns), np.arange(rows)[:, None]
    points[..., 2] = np.sin(points[..., 0]) + points[..., 1]
    return points


def bound(width=60, height=40):
    plotter = kp.FunctionPlotter()
    plotter.on_create(kp.create_offscreen_window(width, height), width, height)
    return plotter


class Array(np.ndarray):
    """One that weak references can be watched at."""


def test_data_live_as_long_as_they_are_shown():
    plotter = bound()
    points = grid_points().view(Array)
    seen = weakref.ref(points)
    plotter.set_data_reference(points)
    del points
    gc.collect()
    assert seen() is not None
    plotter.capture_picture()
    plotter.set_data(grid_points())
    assert seen() is None
    points = grid_points().view(Array)
    seen = weakref.ref(points)
    plotter.set_data_reference(points)
    del points, plotter
    assert seen() is None


def test_data_are_given_back_with_the_window():
    plotter, points = bound(), grid_points().view(Array)
    seen = weakref.ref(points)
    plotter.set_data_reference(points)
    del points
    plotter.on_destroy()
    assert seen() is None


def test_groups_live_as_long_as_the_plotter():
    plotter, points = bound(), Array((3, 3), 'f4')
    points[:] = 0
    seen = weakref.ref(points)
    plotter.add_measure_points(points, 'a')
    del points
    plotter.on_destroy()
    gc.collect()
    assert seen() is not None
    del plotter
    assert seen() is None


def test_shown_arrays_keep_their_memory():
    plotter, points = bound(), grid_points()
    plotter.set_data_reference(points)
    with pytest.raises(ValueError, match='cannot resize'):
        points.resize((2, 2, 3), refcheck=False)
    points.shape = (10, 12, 3)  # the same numbers
    plotter.capture_picture()
    plotter.set_data(points)
    points.resize((2, 2, 3), refcheck=False)


def test_owners_of_shown_views_keep_their_memory():
    plotter, owner = bound(), np.zeros(360, 'f4')
    plotter.set_data_reference(owner.reshape(12, 10, 3))
    with pytest.raises(ValueError, match='cannot resize'):
        owner.resize(10, refcheck=False)
    buffer = bytearray(grid_points().tobytes())
    plotter.set_data_reference(np.frombuffer(buffer, 'f4').reshape(12, 10, 3))
    with pytest.raises(BufferError):
        buffer.clear()


def test_changed_arrays_show():
    plotter, points, group = bound(), grid_points(), np.zeros((1, 3), 'f4')
    plotter.set_data_reference(points)
    plotter.add_measure_points(group, 'a')
    before = plotter.capture_picture()
    group[:] = 5, 5, 9
    assert not np.array_equal(plotter.capture_picture(), before)


def test_windows_live_as_long_as_their_plotter():
    window = kp.create_offscreen_window(60, 40)
    plotter = kp.FunctionPlotter()
    plotter.on_create(window, 60, 40)
    del window
    gc.collect()
    plotter.set_data(grid_points())
    assert plotter.renderscene() == 0


def test_released_windows_draw_nothing():
    window, plotter = kp.create_offscreen_window(60, 40), kp.FunctionPlotter()
    plotter.on_create(window, 60, 40)
    window.release()
    assert plotter.renderscene() != 0
    with pytest.raises(kp.Error):
        plotter.capture_picture()
    window.release()
    with pytest.raises(kp.Error):
        plotter.on_create(window, 60, 40)


def test_functions_that_refer_to_their_plot_are_collected():
    class Watched:
        pass
    plotter, watched = bound(), Watched()
    seen = weakref.ref(watched)
    plotter.set_axis_label_format(0, lambda value, step, kept=(plotter, watched): f'{value:g}')
    plotter.set_data(grid_points())
    del plotter, watched
    gc.collect()
    assert seen() is None


def test_replaced_functions_are_let_go():
    class Words:
        def __call__(self, value, step):
            return 'a'
    plotter, words = bound(), Words()
    seen = weakref.ref(words)
    plotter.set_axis_label_format(1, words)
    del words
    assert seen() is not None
    plotter.set_axis_label_format(1, None)
    assert seen() is None


@pytest.mark.parametrize('wrong', [lambda value, step: 1 / 0, lambda value, step: 5, lambda: 'a',
                                   lambda value, step: '\udc80', lambda value, step: sys.exit(3)])
def test_errors_in_functions_stay_there(wrong, monkeypatch):
    told = []
    monkeypatch.setattr(sys, 'unraisablehook', told.append)
    plotter = bound()
    plotter.set_data(grid_points())
    plotter.set_axis_label_format(0, wrong)
    assert told and plotter.renderscene() == 0


def test_functions_may_use_the_plot():
    plotter, done = bound(), []
    plotter.set_data(grid_points())

    def words(value, step):
        plotter.set_plot_title('changed')
        plotter.set_data(grid_points(5, 4)) if not done else None
        done.append(plotter.get_x_axis_min())
        return f'<{value:g}>'
    try:
        plotter.set_axis_label_format(0, words)
    except kp.Error:
        pass  # it has changed the plot meanwhile
    assert done and plotter.renderscene() == 0


def memory():
    """Kilobytes that the process has."""
    with open('/proc/self/statm') as file:
        return int(file.read().split()[1]) * resource.getpagesize() // 1024


def test_a_thousand_plots_leave_nothing():
    z = np.random.default_rng(5).random((20, 30))

    def some(count):
        for i in range(count):
            plot = kp.plot(z, size=(40, 30), title=f'plot {i}', z_labels=lambda value, step: f'{value:.2g}')
            plot.add_points([[1, 2, 0.5]], name='here')
            plot.image(smoothing=1) if i % 20 == 0 else None
    some(60)
    before = memory()
    some(1000)
    assert memory() - before < 6000  # 6 KB each


def test_python_goes_on_while_a_plot_is_drawn():
    plotter, counted, stop = bound(900, 700), [0], threading.Event()
    plotter.set_data(grid_points(700, 700))
    plotter.capture_picture()

    def count():
        while not stop.is_set():
            counted[0] += 1
            time.sleep(0.0005)
    thread = threading.Thread(target=count)
    thread.start()
    time.sleep(0.05)
    before = counted[0]
    plotter.capture_picture()
    drawn = counted[0] - before
    stop.set()
    thread.join()
    assert drawn > 3


def test_plots_of_several_threads(hill):
    expected = kp.plot(*hill, size=(90, 70)).image()
    wrong = []

    def draw():
        for _ in range(6):
            if not np.array_equal(kp.plot(*hill, size=(90, 70)).image(), expected):
                wrong.append(1)
    threads = [threading.Thread(target=draw) for _ in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert not wrong


def test_one_plot_in_several_threads(hill):
    plot, errors = kp.plot(*hill, size=(90, 70), x_labels=lambda value, step: f'{value:.1f}'), []

    def use(number):
        try:
            for i in range(25):
                plot.title = f'{number} {i}'
                plot.set_data(hill[0] * (i + 1), hill[1], hill[2])
                plot.image(smoothing=1)
        except Exception as error:  # which the test shows
            errors.append(error)
    threads = [threading.Thread(target=use, args=(number,)) for number in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert not errors and plot.image().shape == (70, 90, 4)


def test_plots_of_threads_that_have_ended(hill):
    made = []
    thread = threading.Thread(target=lambda: made.append(kp.plot(*hill, size=(90, 70))))
    thread.start()
    thread.join()
    assert np.array_equal(made[0].image(), kp.plot(*hill, size=(90, 70)).image())
    made.clear()  # ends in this thread


def test_windows_of_other_threads_are_refused():
    made = []
    thread = threading.Thread(target=lambda: made.append(kp.create_offscreen_window(30, 20)))
    thread.start()
    thread.join()
    with pytest.raises(ValueError, match='made in different threads'):
        kp.FunctionPlotter().on_create(made[0], 30, 20)


def test_functions_cannot_wait_for_each_other(monkeypatch):
    """Two plots of two threads whose functions use the other plot."""
    told, plots, ready = [], {}, threading.Barrier(2)
    monkeypatch.setattr(sys, 'unraisablehook', told.append)

    def work(own, other):
        plots[own] = bound()
        ready.wait()
        for _ in range(10):
            try:
                plots[own].set_axis_label_format(0, lambda value, step: plots[other].get_plot_title())
            except kp.Error:
                pass  # what matters is that both come to an end
            plots[own].set_data(grid_points())
    threads = [threading.Thread(target=work, args=pair) for pair in ((0, 1), (1, 0))]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join(60)
    assert not any(thread.is_alive() for thread in threads)
    assert 'cannot use a plot of another thread' in str(told[0].exc_value)


def test_kept_contexts_may_be_forgotten_anywhere():
    context = kp.keep_context()
    context.__enter__()
    with pytest.raises(RuntimeError):
        context.__enter__()
    errors = []

    def leave():
        try:
            context.__exit__(None, None, None)
        except RuntimeError as error:
            errors.append(error)
    thread = threading.Thread(target=leave)
    thread.start()
    thread.join()
    assert errors
    context.__exit__()
    context.__exit__()
    left = [kp.keep_context()]
    left[0].__enter__()
    thread = threading.Thread(target=left.clear)
    thread.start()
    thread.join()


@pytest.mark.parametrize('end', ['', 'raise SystemExit', 'import os; os._exit(0)', 'import sys; sys.modules.clear()',
                                 'import gc; gc.disable(); plot.me = plot',
                                 'import threading; threading.Thread(target=plot.image).start()',
                                 'import threading; threading.Thread(target=lambda: [plot.image() for i in range(99)], daemon=True)'
                                 '.start()', 'import atexit; atexit.register(plot.image)'])
def test_the_interpreter_may_end_at_any_time(run_python, end):
    run_python('import numpy as np, kivoplot as kp\n'
               'plot = kp.plot(np.eye(9), size=(90, 70), x_labels=lambda value, step: str(value) + repr(plot)[:0] '
               'if "plot" in globals() else "")\n'
               f'plot.image()\n{end}')
