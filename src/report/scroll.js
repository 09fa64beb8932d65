// The place in a list that may be taller than any element of a browser can be. Up to that height the scroll bar is the
// place; beyond, small movements count as they are and large ones in proportion.

const TallestElement = 8000000;  // pixels

class Scroll {
    // Calls moved when the place has changed by scrolling.
    constructor(viewport, space, moved) {
        this.viewport = viewport;
        this.space = space;
        this.place = 0;   // pixels from the begin of the list to the upper edge of the view
        this.height = 0;  // of the list
        this.view = 0;    // height of the view
        this.last = 0;    // of the scroll bar
        this.settle = delayed(200, () => this.moveBar());
        viewport.addEventListener("scroll", () => {
            this.follow();
            moved();
        }, {passive: true});
    }

    // Sets the heights of the list and of the view, in pixels.
    resize(height, view) {
        this.height = height;
        this.view = view;
        this.space.style.height = `${Math.max(Math.min(height, TallestElement), view)}px`;
        this.moveTo(this.place);
    }

    moveTo(place) {
        this.place = Math.min(Math.max(place, 0), this.lastPlace());
        this.moveBar();
    }

    lastPlace() {
        return Math.max(this.height - this.view, 0);
    }

    lastBar() {
        return Math.max(Math.min(this.height, TallestElement) - this.view, 0);
    }

    isScaled() {
        return this.height > TallestElement;
    }

    follow() {
        const bar = this.viewport.scrollTop;
        const moved = bar - this.last;
        this.last = bar;
        if (!this.isScaled() || Math.abs(moved) > 2 * this.view || bar <= 0 || bar >= this.lastBar() - 1)
            this.place = this.lastBar() === 0 ? 0 : bar / this.lastBar() * this.lastPlace();
        else
            this.place += moved;
        this.place = Math.min(Math.max(this.place, 0), this.lastPlace());
        if (this.isScaled())
            this.settle();
    }

    // Moves the scroll bar to where the place is.
    moveBar() {
        this.viewport.scrollTop = this.lastPlace() === 0 ? 0 : this.place / this.lastPlace() * this.lastBar();
        this.last = this.viewport.scrollTop;
    }
}
