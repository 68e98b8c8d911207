"""The control for GTK 4 from Python, through introspection: prints what it finds, one line each."""

import gi

gi.require_version("Gtk", "4.0")
gi.require_version("Kivo", "0.1")
from gi.repository import Gdk, GLib, Gtk, Kivo


def main():
    plot = Kivo.Plot(title="From Python", z_contours=True, color_map="viridis")
    print("grid", plot.set_heights([1, 2, 3, 4, 5, 6], 3, 2, 0, 2, 0, 1), plot.set_grid([1, 2, 3], 2, 2))
    print("properties", plot.props.title, plot.props.z_contours, plot.props.color_map, plot.props.kind.value_nick)
    plot.props.kind = Kivo.PlotKind.XY
    print("angles in a flat plot", plot.set_angles(10, 20))
    plot.props.kind = Kivo.PlotKind.NORMAL
    print("angles", plot.set_angles(10, 20), *(round(a) for a in plot.get_angles()[1:]))
    red, blue = Gdk.RGBA(), Gdk.RGBA()
    red.parse("red"), blue.parse("blue")
    plot.set_colors(blue, red)
    print("map", plot.props.color_map)
    plot.connect("view-changed", lambda _: None)
    window = Gtk.Window(child=plot, default_width=300, default_height=200, decorated=False)
    window.present()
    while not plot.get_width():
        GLib.MainContext.default().iteration(True)
    picture = plot.get_picture()
    print("picture", picture.get_width(), picture.get_height(), plot.props.failure)
    window.destroy()


main()
