// The table of folders and files: a treegrid of which only the rows in view have elements. One row is the active one;
// it takes the focus, and so it always has an element.

const RowsAround = 4;       // drawn above and below the view
const MostPrinted = 2000;  // rows; some forty pages

class Table {
    // chosen is called with the entry whose row becomes active.
    constructor(rows, kinds, chosen) {
        this.rows = rows;
        this.entries = rows.entries;
        this.kinds = kinds;
        this.chosen = chosen;
        this.active = 0;        // the number of a row
        this.drawn = new Map();  // views by the number of their row
        this.spare = [];
        this.printing = false;
        this.grid = byId("grid");
        this.layer = byId("layer");
        this.head = byId("head").firstChild;
        this.addHeadings();
        this.scroll = new Scroll(byId("viewport"), byId("space"), () => this.draw());
        this.grid.setAttribute("aria-colcount", Columns.length + 1);
        this.layer.addEventListener("click", event => this.onClick(event));
        this.layer.addEventListener("keydown", event => this.onKey(event));
        this.layer.addEventListener("focusin", () => this.moveTo(this.active, {focus: false}));
        addEventListener("beforeprint", () => this.print(true));
        addEventListener("afterprint", () => this.print(false));
        const observer = new ResizeObserver(() => this.measure());
        observer.observe(byId("viewport"));
        observer.observe(this.head);
    }

    addHeadings() {
        const columns = [{id: "name", title: "Name", key: "name"}, ...Columns];
        this.headings = columns.map(({id, title, key, number}) => {
            const heading = element("div", id + (number ? " number" : ""));
            heading.setAttribute("role", "columnheader");
            const button = element("button", "", title);
            button.type = "button";
            button.addEventListener("click", () => this.sortBy(heading, key));
            heading.append(button);
            this.head.append(heading);
            return heading;
        });
    }

    // A column sorts by its second direction when it sorts by the first, and then by the order of the list again.
    // Names begin with the first letter, numbers with the largest.
    sortBy(heading, key) {
        const first = key === "name" ? "ascending" : "descending";
        const second = key === "name" ? "descending" : "ascending";
        const before = heading.getAttribute("aria-sort");
        const after = before === null ? first : before === first ? second : null;
        for (const other of this.headings)
            other.removeAttribute("aria-sort");
        if (after !== null)
            heading.setAttribute("aria-sort", after);
        this.change(rows => rows.sortBy(after === null ? "list" : key, after === "descending"));
    }

    // Measures the height of a row, which depends on the size of the text.
    measure() {
        const row = this.head.getBoundingClientRect().height;
        const view = this.scroll.viewport.clientHeight - row;
        if (row === 0)
            return;
        const first = this.rowHeight ? this.scroll.place / this.rowHeight : 0;
        this.rowHeight = row;
        this.layer.style.height = `${view}px`;
        this.scroll.resize(this.rows.count * row, view);
        this.scroll.moveTo(first * row);
        this.draw();
    }

    // Draws the rows after they have changed. The active row is that of the entry, or of the closest folder around it
    // that has one.
    update(entry) {
        this.grid.setAttribute("aria-rowcount", this.rows.count + 1);
        this.active = 0;
        for (; entry > 0; entry = this.entries.parent[entry]) {
            const index = this.rows.indexOf(entry);
            if (index !== -1) {
                this.active = index;
                break;
            }
        }
        for (const view of this.drawn.values())
            view.index = -1;
        if (this.rowHeight)
            this.scroll.resize(this.rows.count * this.rowHeight, this.scroll.view);
        this.draw();
    }

    draw() {
        const {count} = this.rows;
        const height = this.rowHeight || 1;
        const {place, view} = this.scroll;
        const first = this.printing ? 0 : Math.max(Math.floor(place / height) - RowsAround, 0);
        const last = this.printing ? Math.min(count, MostPrinted) :
            Math.min(Math.ceil((place + view) / height) + RowsAround, count);
        const wanted = [];
        if (this.active < first)
            wanted.push(this.active);
        for (let index = first; index < last; ++index)
            wanted.push(index);
        if (this.active >= last && this.active < count)
            wanted.push(this.active);

        this.release(wanted);
        let next = this.layer.firstChild;
        for (const index of wanted) {
            const {element} = this.viewOf(index);
            if (element === next)
                next = next.nextSibling;
            else
                this.layer.insertBefore(element, next);
            element.tabIndex = index === this.active ? 0 : -1;
            element.classList.toggle("active", index === this.active);
            element.classList.toggle("away", index < first || index >= last);
        }
        while (next !== null) {
            const rest = next;
            next = next.nextSibling;
            rest.remove();
        }
        this.layer.style.transform = this.printing ? "" : `translateY(${first * height - place}px)`;
    }

    // Makes the views of all other rows spare, and moves them to the end, so that those that stay are not moved: an
    // element that is moved loses the focus.
    release(wanted) {
        const kept = new Set(wanted);
        for (const [index, view] of this.drawn) {
            if (kept.has(index))
                continue;
            this.drawn.delete(index);
            this.spare.push(view);
            this.layer.append(view.element);
        }
    }

    viewOf(index) {
        let view = this.drawn.get(index);
        if (view === undefined) {
            view = this.spare.pop() ?? new RowView();
            view.index = -1;
            this.drawn.set(index, view);
        }
        if (view.index !== index)
            view.show(this.rows, index, this.kinds);
        return view;
    }

    // Makes a row the active one and scrolls to it.
    moveTo(index, {focus = true, center = false} = {}) {
        if (this.rows.count === 0)
            return;
        this.active = Math.min(Math.max(index, 0), this.rows.count - 1);
        const {place, view} = this.scroll;
        const top = this.active * this.rowHeight;
        if (center)
            this.scroll.moveTo(top - view / 3);
        else if (top < place)
            this.scroll.moveTo(top);
        else if (top + this.rowHeight > place + view)
            this.scroll.moveTo(top + this.rowHeight - view);
        this.draw();
        if (focus)
            this.viewOf(this.active).element.focus({preventScroll: true});
    }

    // Shows an entry in the table, wherever it is.
    reveal(entry, {focus}) {
        const endsSearch = this.rows.reveal(entry);
        this.update(entry);
        this.moveTo(this.active, {focus, center: true});
        return endsSearch;
    }

    // Changes the rows by a call with them. The active row stays in view.
    change(call) {
        const entry = this.rows.count === 0 ? 0 : this.rows.list[this.active];
        call(this.rows);
        this.update(entry);
        this.moveTo(this.active, {focus: false});
    }

    setOpen(folder, open) {
        this.change(rows => rows.setOpen(folder, open));
    }

    onClick(event) {
        const clicked = event.target.closest(".row");
        const view = [...this.drawn.values()].find(each => each.element === clicked);
        if (view === undefined)
            return;
        const {entry, index} = view;
        this.moveTo(index);
        if (this.entries.hasKids(entry) && event.target.closest(".name") !== null)
            this.setOpen(entry, !this.rows.isOpen(entry));
        this.chosen(entry);
    }

    onKey(event) {
        if (event.ctrlKey || event.altKey || event.metaKey || this.rows.count === 0)
            return;
        const {rows, entries} = this;
        const entry = rows.list[this.active];
        const canOpen = entries.hasKids(entry);
        const isOpen = canOpen && rows.isOpen(entry);
        const page = Math.max(Math.floor(this.scroll.view / this.rowHeight) - 1, 1);
        const actions = {
            ArrowDown: () => this.moveTo(this.active + 1),
            ArrowUp: () => this.moveTo(this.active - 1),
            PageDown: () => this.moveTo(this.active + page),
            PageUp: () => this.moveTo(this.active - page),
            Home: () => this.moveTo(0),
            End: () => this.moveTo(rows.count - 1),
            ArrowRight: () => isOpen ? this.moveTo(this.active + 1) : canOpen && this.setOpen(entry, true),
            ArrowLeft: () => isOpen ? this.setOpen(entry, false) : this.moveToParent(entry),
            Enter: () => canOpen && this.setOpen(entry, !isOpen),
            " ": () => canOpen && this.setOpen(entry, !isOpen),
        };
        const action = actions[event.key];
        if (action === undefined)
            return;
        event.preventDefault();
        action();
        this.chosen(rows.list[this.active]);
    }

    moveToParent(entry) {
        const parent = this.entries.parent[entry];
        if (parent !== 0)
            this.moveTo(this.rows.indexOf(parent));
    }

    print(printing) {
        this.printing = printing;
        const cut = byId("cut");
        cut.hidden = !printing || this.rows.count <= MostPrinted;
        cut.textContent = `The first ${numberText(MostPrinted)} of ${numberText(this.rows.count)} rows are printed.`;
        this.draw();
    }
}
