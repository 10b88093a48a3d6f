# SPDX-License-Identifier: MIT
"""Both examples run in an emulator: they show a picture, and it follows time and the pad."""
import unittest

from emulator import Emulator
from support import HomeTestCase

# Keys of the emulator's first pad.
START, LEFT, RIGHT, UP = "Return", "Left", "Right", "Up"


def drawn(picture):
    """Several colours, each on more than a thin line of the picture."""
    return len([share for share in picture.shares() if share > 0.005]) >= 4


class BootTest(HomeTestCase):
    def boot(self, name):
        emulator = Emulator(self.build(name), self.home / "emulator")
        self.addCleanup(emulator.stop)
        emulator.start()
        emulator.wait_for_picture("a picture", drawn)
        return emulator

    def test_skylark_shows_its_title_and_the_pad_moves_the_bird(self):
        emulator = self.boot("Skylark")
        title, left, right = (80, 54, 176, 66), (0, 100, 40, 150), (200, 100, 256, 150)
        first = emulator.wait_for_picture("the title", lambda picture: len(picture.shares(*title)) >= 3)
        bird = (112, 104, 144, 136)
        emulator.wait_for_picture("the bird's wings to beat",
                                  lambda picture: picture.region(*bird) != first.region(*bird))
        there = emulator.hold(RIGHT, "the bird at the right edge",
                              lambda picture: picture.region(*right) != first.region(*right))
        self.assertEqual(there.region(*left), first.region(*left))
        self.assertEqual(there.region(*title), first.region(*title))
        back = emulator.hold(LEFT, "the bird at the left edge",
                             lambda picture: picture.region(*left) != first.region(*left))
        self.assertEqual(back.region(*right), first.region(*right))
        # It may have flown on while the picture was looked at, so all of the upper left counts.
        above = (0, 4, 60, 30)
        emulator.hold(UP, "the bird at the upper edge",
                      lambda picture: picture.region(*above) != first.region(*above))

    def test_lanternfall_goes_from_the_title_to_the_village_to_the_end_and_back(self):
        emulator = self.boot("Lanternfall")
        logo, garland, flames = (40, 56, 216, 72), (16, 24, 240, 40), (216, 8, 240, 16)
        message, again, house = (88, 80, 168, 88), (80, 96, 176, 104), (0, 172, 36, 196)

        def drawn_on(picture, rectangle, share=0.2):
            return 1 - picture.shares(*rectangle)[0] > share

        def burning(picture):
            return drawn_on(picture, flames)

        title = emulator.wait_for_picture("the title", lambda picture: drawn_on(picture, logo))
        emulator.wait_for_picture("lanterns to fall without a key being pressed",
                                  lambda picture: picture.region(60, 100, 200, 180) != title.region(60, 100, 200, 180))
        village = emulator.hold(START, "the village, with three flames burning",
                                lambda picture: not drawn_on(picture, logo) and burning(picture))
        self.assertNotEqual(village.region(*garland), title.region(*garland))
        # The fox stands still, so lanterns are lost until all flames are out and the game is over.
        over = emulator.wait_for_picture("the flames to go out and a message to come",
                                         lambda picture: not burning(picture) and drawn_on(picture, message, 0.1))
        self.assertFalse(drawn_on(over, logo))
        emulator.wait_for_picture("the word that another game may begin",
                                  lambda picture: drawn_on(picture, again, 0.1))
        # Not before the house on the left has come to rest: until then Start is not listened to.
        emulator.hold(START, "the title again", lambda picture: picture.region(*house) == title.region(*house))
        # Many frames, so that the game has seen that the key is up.
        emulator.wait_for_picture("the words to blink", lambda picture: not drawn_on(picture, again, 0.1))
        emulator.hold(START, "a second game", lambda picture: not drawn_on(picture, logo) and burning(picture))


if __name__ == "__main__":
    unittest.main()
