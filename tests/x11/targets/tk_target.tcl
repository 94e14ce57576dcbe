# A Tk window that reports what a user's clicks and typing did to it, one line each.
proc say {args} { puts [join $args]; flush stdout }
proc centre {w} {
    list [expr {[winfo rootx $w] + [winfo width $w] / 2}] [expr {[winfo rooty $w] + [winfo height $w] / 2}]
}
wm title . "tk target"
wm geometry . +420+200
button .b -text Press -width 20 -height 3 -command {say clicked}
bind .b <Double-1> {say double}
bind .b <3> {say menu}
entry .e -width 30
bind .e <Return> {say text [.e get]}
pack .b .e
update
after 300 {
    say at button {*}[centre .b]
    say at entry {*}[centre .e]
    say ready
}
