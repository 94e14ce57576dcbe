# A GTK 3 window that reports what a user's clicks and typing did to it, one line each.
import gi
gi.require_version("Gtk", "3.0")
from gi.repository import GLib, Gdk, Gtk


def pressed(_, event):
    if event.type == Gdk.EventType._2BUTTON_PRESS:
        print("double", flush=True)
    elif event.button == 3:
        print("menu", flush=True)


def report():
    _, ox, oy = window.get_window().get_origin()
    for name, widget in (("button", button), ("entry", entry)):
        a = widget.get_allocation()
        print("at", name, ox + a.x + a.width // 2, oy + a.y + a.height // 2, flush=True)
    print("ready", flush=True)


window = Gtk.Window(title="gtk target")
window.move(200, 200)
box = Gtk.Box(orientation=Gtk.Orientation.VERTICAL)
button = Gtk.Button(label="Press", width_request=200, height_request=60)
button.connect("clicked", lambda _: print("clicked", flush=True))
button.connect("button-press-event", pressed)
entry = Gtk.Entry()
entry.connect("activate", lambda _: print("text", entry.get_text(), flush=True))
box.add(button)
box.add(entry)
window.add(box)
window.connect("map-event", lambda *_: GLib.timeout_add(300, report))
window.show_all()
Gtk.main()
