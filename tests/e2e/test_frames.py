"""Every frame that the audience sees, one after the other: none that was not sent."""

import random

from program import DISPLAY
from screen_watch import ScreenWatch, hash_of
from show_case import BLACK_HASH, TwoScreenCase, run, slide_hash
from xserver import SECOND_SCREEN

SLIDES = 4
CHANGES = 500
LONGEST_BURST = 5
KEYS = ("Right", "Right", "Left", "b", "l")


class Audience:
    """What is to be seen: the live slide and the mode, changed as the keys say."""

    def __init__(self, holding):
        self._hashes = {"b": BLACK_HASH, "l": holding}
        self._slide = 0
        self._mode = "live"

    def press(self, key):
        if key == "Right":
            self._slide = (self._slide + 1) % SLIDES
            self._mode = "live"
        elif key == "Left":
            self._slide = max(0, self._slide - 1)
            self._mode = "live"
        else:
            self._mode = "live" if self._mode == key else key

    def hash(self):
        return slide_hash(self._slide) if self._mode == "live" else self._hashes[self._mode]


class OpeningAndClosing(TwoScreenCase):
    def test_the_display_shows_the_live_slide_or_black_and_nothing_else(self):
        program = self.start_show()
        desktop = hash_of(self.settled_screenshot())
        with ScreenWatch(self.server, SECOND_SCREEN) as watch:
            for _ in range(5):
                count = len(watch.frames())
                program.open_display()
                watch.wait_for(lambda frames: frames[-1].hash == slide_hash(0), "the slide")
                program.toggle_display()
                watch.wait_for(lambda frames: frames[-1].hash == desktop, "the desktop")
                shown = [frame.hash for frame in watch.frames()[count:]]
                if shown[0] == BLACK_HASH:
                    del shown[0]
                self.assertEqual(shown, [slide_hash(0), desktop])

    def test_a_display_that_comes_back_shows_the_live_slide_or_black_and_nothing_else(self):
        program = self.start_show()
        program.open_display()
        self.see_slide(0)
        self.addCleanup(self.server.plug_second_screen)
        self.server.unplug_second_screen()
        program.wait_for_no_window(DISPLAY)
        self.server.plug_second_screen()
        with ScreenWatch(self.server, SECOND_SCREEN) as watch:
            watch.wait_for(lambda frames: frames[-1].hash == slide_hash(0), "the slide")
            watch.settle()
            self.assertLessEqual({frame.hash for frame in watch.frames()[1:]},
                                 {BLACK_HASH, slide_hash(0)})


class Frames(TwoScreenCase):
    def setUp(self):
        super().setUp()
        self.program = self.start_show()
        self.program.open_display()
        self.see_slide(0)
        self.program.focus(DISPLAY)
        self.watch = self.enterContext(ScreenWatch(self.server, SECOND_SCREEN))
        self.to_come = [slide_hash(0)]
        self.seen = 0

    def holding_screen(self):
        """The hash of the holding screen, shown for it and taken away again."""
        self.watch.press("l")
        self.watch.wait_for(lambda frames: len(frames) > 1, "the holding screen")
        self.watch.settle()
        holding = self.watch.frames()[-1].hash
        self.watch.press("l")
        self.watch.wait_for(lambda frames: frames[-1].hash == slide_hash(0), "the slide")
        self.seen = len(self.watch.frames())
        return holding

    def see_after(self, keys, audience):
        """Presses keys and sees what they ask for, in order. Frames of an instant may be missed."""
        for key in keys:
            audience.press(key)
            self.to_come.append(audience.hash())
            self.watch.press(key)
        self.watch.wait_for(lambda frames: frames[-1].hash == self.to_come[-1],
                            f"what {keys} lead to")
        self.watch.settle()
        frames = self.watch.frames()
        for frame in frames[self.seen:]:
            self.assertIn(frame.hash, self.to_come, f"a frame nobody sent, after {keys}")
            # This frame may be seen again, but none from before it.
            del self.to_come[:self.to_come.index(frame.hash)]
        self.seen = len(frames)

    def test_no_frame_is_seen_that_was_not_sent(self):
        audience = Audience(self.holding_screen())
        chance = random.Random(1)
        changes = 0
        while changes < CHANGES:
            keys = chance.choices(KEYS, k=chance.randint(1, LONGEST_BURST))
            self.see_after(keys, audience)
            changes += len(keys)

    def test_every_mode_follows_every_other_in_one_step_with_nothing_in_between(self):
        audience = Audience(self.holding_screen())
        # From live to black, back, to the holding screen, back, there again, to black, to the
        # holding screen, to black, and live with the slide's key.
        for key in ("b", "b", "l", "l", "l", "b", "l", "b", "Right"):
            count = len(self.watch.frames())
            self.see_after([key], audience)
            self.watch.settle()
            self.assertEqual([frame.hash for frame in self.watch.frames()[count:]],
                             [audience.hash()])


if __name__ == "__main__":
    run()
