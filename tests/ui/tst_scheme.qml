// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale.Style
import Quorvale.Testing

// The colours that an item takes from what it stands in.
ViewTest {
    id: test

    name: "Scheme"

    Component {
        id: places

        Item {
            readonly property Item dark: darkPlace
            readonly property Item light: lightPlace
            readonly property alias inner: innerItem
            readonly property T.Popup popup: darkPopup

            Item {
                id: darkPlace

                Scheme.colors: Theme.dark

                Item {
                    Item {
                        id: innerItem

                        readonly property ColorScheme colors: Scheme.colors
                    }
                }

                T.Popup {
                    id: darkPopup

                    contentItem: Item {}
                }
            }

            Item {
                id: lightPlace

                Scheme.colors: Theme.light
            }
        }
    }

    function test_followsWhatIsGivenToTheWindow() {
        const place = show(places);
        place.dark.Scheme.colors = null;
        inBothSchemes(() => {
            compare(place.Scheme.colors, Theme.current);
            compare(place.inner.colors, Theme.current);
        });
    }

    function test_takesWhatIsGivenToTheNearest() {
        const place = show(places);
        compare(place.inner.colors, Theme.dark);
        inBothSchemes(() => compare(place.inner.colors, Theme.dark));
        place.dark.Scheme.colors = Theme.light;
        compare(place.inner.colors, Theme.light);
        place.inner.Scheme.colors = Theme.dark;
        compare(place.inner.colors, Theme.dark);
        compare(place.dark.Scheme.colors, Theme.light);
    }

    function test_goesAlongToAnotherPlace() {
        const place = show(places);
        compare(place.inner.colors, Theme.dark);
        place.inner.parent.parent = place.light;
        compare(place.inner.colors, Theme.light);
        place.dark.Scheme.colors = null;
        compare(place.inner.colors, Theme.light);
        place.light.Scheme.colors = Theme.dark;
        compare(place.inner.colors, Theme.dark);
    }

    function test_aPopupIsAsTheItemThatItBelongsTo() {
        const place = show(places);
        place.popup.open();
        compare(place.popup.contentItem.Scheme.colors, Theme.dark);
        place.dark.Scheme.colors = Theme.light;
        compare(place.popup.contentItem.Scheme.colors, Theme.light);
        place.popup.close();
    }
}
